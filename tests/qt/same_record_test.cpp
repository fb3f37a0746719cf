#include <cstring>
#include <tuple>

#include "platform/nrvui/scripted_presenter.h"
#include "tests/qt/test_window.h"

using nrvui::gestures::GestureScript;
using nrvui::gestures::ScriptedPresenter;

class SameRecord : public MosaicWindowTest {
 protected:
  /// All that a caller and a reader of the console get from a dialog that a script played.
  std::string PlayOn(const std::string& text, bool onWindow) {
    const auto given = std::pair(record, state);
    std::string played;
    const auto note = [&](const std::string& report) { played += report + '\n'; };
    const GestureScript script = GestureScript::Parse(text, "script");
    ScriptedPresenter scripted(script, note);
    qtui::QtPresenter windowed;
    windowed.PlayScript(script, note);
    const ResultCode code = onWindow ? RunWith(windowed) : RunWith(scripted);
    const auto& error = onWindow ? windowed.Error() : scripted.Error();
    if (error) note(error->what());
    note(std::to_string(static_cast<int32_t>(code)));
    played += testing::PrintToString(std::pair(record, state));
    std::tie(record, state) = given;
    return played;
  }
};

TEST_F(SameRecord, ComesFromEveryKindOfGesture) {
  std::memset(record.reserved0, 0xA5, sizeof(record.reserved0));
  const struct {
    const char* script;
    bool isSizeUnknown = false;
  } cases[] = {
      {"key Return"},
      {"key Escape"},
      {"close"},
      {"enter NewWidthTxt 2 in\nenter NewHeightTxt 51.2mm\nkey Return"},
      {"enter NewWidthTxt 99999\nenter TileSpaceHorzTxt -3\nclick okButton"},
      {"click UsePercentChk\nenter NewWidthTxt 33.5\nenter NewHeightTxt 120 %\nkey Return"},
      {"enter HorizontalCountTxt 12.9\nclick MosaicUseRatioButton\nclick GrayRadio\nkey Return"},
      {"enter NewWidthTxt 1e2\nenter NewHeightTxt +7 PT\nenter VerticalCountTxt 0012\nclick "
       "okButton"},
      {"enter NewWidthTxt \uff11\uff12\nenter NewHeightTxt 1\u00a0\nkey Return"},
      {"click UsePercentChk\nenter NewWidthTxt \u22125\nenter NewHeightTxt 33.3333\nkey Return"},
      {"resize 900.5 800\nenter NewWidthTxt 10 cm\nkey Return"},
      // What cannot be played, and what is left open.
      {"enter NewWidthTxt many\nkey Return"},
      {"key Return\nclick GrayRadio"},
      {"enter NewWidthTxt 12"},
      {""},
      {"enter NewWidthTxt 50\nenter VerticalCountTxt 3\nclick DeleteRasterChk\nkey Return", true},
      {"click MosaicUseRatioButton\nkey Return", true},
  };
  for (const auto& [script, isSizeUnknown] : cases) {
    record.sizeUnavailable = isSizeUnknown;
    EXPECT_EQ(PlayOn(script, true), PlayOn(script, false)) << script;
  }
}
