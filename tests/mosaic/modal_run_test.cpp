#include <gtest/gtest.h>

#include "check/function_presenter.h"
#include "check/hosted_module.h"
#include "host/plugin_main.h"
#include "platform/vxui/modal_context.h"

namespace {

bool isApplicationBlocked = false;

}  // namespace

// These take the place of the library's, which has no use for the argument.
vx::ui::ModalContext::ModalContext(bool blocksApplication) {
  isApplicationBlocked = blocksApplication;
}
vx::ui::ModalContext::~ModalContext() {
  isApplicationBlocked = false;
}

TEST(MosaicDialog, BlocksTheApplicationWhileItRuns) {
  standin::RecordingUserInterface person;
  standin::Host host(person);
  standin::Module module(host, &PluginMain, "TesseraeUI");
  ASSERT_EQ(module.StartUp(), ResultCode::kSuccess);
  bool wasBlocked = false;
  const FunctionPresenter presenter(
      [&](nrvui::ui::UI_Dialog&) { wasBlocked = isApplicationBlocked; });
  MosaicParameters record = SampleRecord();
  MosaicParameters* params = &record;
  MosaicDialogState state{};
  EXPECT_EQ(host.Suites().Find<MosaicSuite>()->RunMosaicDialog(&state, &params),
            ResultCode::kCancelled);
  EXPECT_TRUE(wasBlocked);
  EXPECT_FALSE(isApplicationBlocked);
}
