#include "studio/caller/mosaic_caller.h"

#include <gtest/gtest.h>

#include <functional>

#include "studio/base/studio_error.h"

namespace {

void Ask(MosaicCaller& caller) {
  MosaicParameters params{};
  MosaicDialogState state{};
  caller.Ask(params, state);
}

TEST(MosaicCaller, SaysWhatFailedAndWhy) {
  const struct {
    const char* refused;
    std::function<void(MosaicCaller&)> call;
    const char* text;
  } kCases[] = {
      {"acquire/VX TesseraeUI Suite", Ask, "the module offers no dialog: code 12"},
      {"Sheet Factory/CreateSheetHolder", Ask, "the dialog cannot be shown: 'CANT'"},
      {"QP Blocks Suite/FreeBlock", &MosaicCaller::Close,
       "the module cannot be shut down: The document is locked."},
      {"release/QP Access Suite", &MosaicCaller::Close,
       "the module did not release everything: suite \"QP Access Suite\" 3 has 1 users"},
  };
  for (const auto& [refused, call, text] : kCases) {
    standin::RecordingUserInterface screen;
    MosaicCaller caller(screen);
    standin::Host::Current().AddResourceProblem("what went wrong in an earlier call");
    standin::Host::Current().Operations().Refuse(refused, ResultCode{12});
    try {
      call(caller);
      ADD_FAILURE() << refused;
    } catch (const StudioError& error) {
      EXPECT_STREQ(error.what(), text) << refused;
    }
    EXPECT_TRUE(screen.alerts.empty()) << "the error tells it";
  }
}

}  // namespace
