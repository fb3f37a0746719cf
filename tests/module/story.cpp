#include "module/story.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "platform/nrvui/scripted_presenter.h"

std::filesystem::path ModuleFile() {
  return MODULE_FILE;
}

Story::Story() : module(host, ModuleFile()) {}

void Story::Play() {
  undisturbed = true;
  Check("start up", module.StartUp());
  Check("about", module.About());
  Check("notify", module.Notify("VX Application Started Notifier"));
  RunDialog("enter HorizontalCountTxt 12\nclick MosaicUseRatioButton\nclick GrayRadio\nkey Return",
            ResultCode::kSuccess);
  Check("unload", module.Unload());
  if (!module.IsLoaded()) Check("reload", module.Reload());
  RunDialog("enter NewWidthTxt 12\nclick DeleteRasterChk\nkey Escape", ResultCode::kCancelled);
  RunDialog("click UsePercentChk\nenter NewWidthTxt 50\nclick okButton", ResultCode::kSuccess);
  Check("shut down", module.ShutDown());
}

void Story::Check(const char* step, ResultCode code, ResultCode expected) {
  if (code == expected) return;
  undisturbed = false;
  EXPECT_TRUE(std::ranges::find(allowed, code) != allowed.end())
      << step << " answers " << static_cast<int32_t>(code);
}

void Story::RunDialog(const char* gestures, ResultCode expected) {
  const auto* suite = host.Suites().Find<MosaicSuite>();
  if (!module.Globals() || !suite) {
    undisturbed = false;
    return;
  }
  MosaicParameters record{};
  std::memset(&record, 0x5A, sizeof(record));
  record.boundsLeft = record.boundsTop = 0;
  record.boundsRight = 300;
  record.boundsBottom = 200;
  record.keepHorizontal = 1;
  record.sizeUnavailable = 0;
  MosaicDialogState state{};
  const MosaicParameters givenRecord = record;
  const MosaicDialogState givenState = state;

  nrvui::gestures::ScriptedPresenter presenter(
      nrvui::gestures::GestureScript::Parse(gestures, "story"));
  const nrvui::ui::InstalledPresenter installed(presenter);
  MosaicParameters* params = &record;
  const ResultCode code = suite->RunMosaicDialog(&state, &params);
  if (presenter.Error()) undisturbed = false;
  // A dialog whose gestures could not be played is cancelled.
  if (code != ResultCode::kCancelled || !presenter.Error()) Check("dialog", code, expected);
  if (code == ResultCode::kSuccess) {
    EXPECT_EQ(record.tilesAcross, record.tilesAcrossCopy);
    EXPECT_EQ(record.reserved28, 0);
    EXPECT_EQ(record.reserved11, 0x5A);
  } else {
    EXPECT_EQ(std::memcmp(&record, &givenRecord, sizeof(record)), 0);
    EXPECT_EQ(std::memcmp(&state, &givenState, sizeof(state)), 0);
  }
}
