#include <gtest/gtest.h>

#include "host/plugin_main.h"
#include "mosaic/tesserae_ui.h"
#include "platform/vxui/dialogs.h"
#include "testkit/function_presenter.h"
#include "testkit/hosted_module.h"

static bool isApplicationBlocked = false;

// These replace the toolkit's, which ignore the argument.
vx::ui::ModalContext::ModalContext(bool blocksApplication) {
  isApplicationBlocked = blocksApplication;
}
vx::ui::ModalContext::~ModalContext() {
  isApplicationBlocked = false;
}

class PluginTest : public testing::Test {
 protected:
  PluginTest() { EXPECT_EQ(module.StartUp(), ResultCode::kSuccess); }

  standin::RecordingUserInterface person;
  standin::Host host{person};
  standin::Module module{host, &PluginMain, "TesseraeUI"};
};

TEST_F(PluginTest, DialogRunsInAModalContextThatBlocksTheApplication) {
  bool wasBlocked = false;
  const FunctionPresenter presenter(
      [&](nrvui::ui::UI_Dialog&) { wasBlocked = isApplicationBlocked; });
  MosaicParameters record = SampleRecord();
  MosaicParameters* params = &record;
  MosaicDialogState state{};
  EXPECT_EQ(host.Suites().Find<MosaicSuite>()->RunMosaicDialog(&state, &params),
            ResultCode::kCancelled);
  EXPECT_TRUE(wasBlocked);
}

TEST_F(PluginTest, NoPluginIsCurrentAfterAShutDownThatFails) {
  host.Operations().Refuse("QP Blocks Suite/FreeBlock", ResultCode::kParameter);
  EXPECT_EQ(static_cast<Plugin*>(module.Globals())->OnShutdown(nullptr), ResultCode::kParameter);
  EXPECT_EQ(currentPlugin, nullptr);
}
