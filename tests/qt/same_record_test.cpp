#include <cstring>
#include <random>

#include "platform/nrvui/scripted_presenter.h"
#include "qt/window_test.h"

using nrvui::gestures::GestureScript;
using nrvui::gestures::ScriptedPresenter;

namespace {

/// All that a caller and a reader of the console get from a dialog that a script played.
struct Played {
  ResultCode code;
  std::string record;
  std::string error;
  std::vector<std::string> reports;

  bool operator==(const Played&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const Played& played) {
  stream << static_cast<int32_t>(played.code) << " [" << played.error << "]";
  for (const std::string& report : played.reports) stream << "\n  " << report;
  return stream << "\n  " << testing::PrintToString(played.record);
}

template <class Bytes>
std::string BytesOf(const Bytes& bytes) {
  return std::string(reinterpret_cast<const char*>(&bytes), sizeof(bytes));
}

}  // namespace

class SameRecord : public MosaicWindowTest {
 protected:
  Played PlayOn(const std::string& text, bool onWindow) {
    const MosaicParameters givenRecord = record;
    const MosaicDialogState givenState = state;
    std::vector<std::string> reports;
    const auto note = [&](const std::string& report) { reports.push_back(report); };
    const GestureScript script = GestureScript::Parse(text, "script");

    ScriptedPresenter scripted(script, note);
    qtui::QtPresenter windowed;
    windowed.PlayScript(script, note);
    const ResultCode code = onWindow ? RunWith(windowed) : RunWith(scripted);
    const auto& error = onWindow ? windowed.Error() : scripted.Error();
    Played played{code, BytesOf(record) + BytesOf(state), error ? error->what() : "", reports};
    record = givenRecord;
    state = givenState;
    return played;
  }

  void ExpectSame(const std::string& script) {
    EXPECT_EQ(PlayOn(script, true), PlayOn(script, false)) << script;
  }
};

TEST_F(SameRecord, ComesFromEveryKindOfGesture) {
  std::memset(record.reserved0, 0xA5, sizeof(record.reserved0));
  for (const char* script : {
           "key Return",
           "key Escape",
           "close",
           "click okButton",
           "click cancelButton",
           "enter NewWidthTxt 2 in\nenter NewHeightTxt 51.2mm\nkey Return",
           "enter NewWidthTxt 99999\nenter TileSpaceHorzTxt -3\nclick okButton",
           "click UsePercentChk\nenter NewWidthTxt 33.5\nenter NewHeightTxt 120 %\nkey Return",
           "click UsePercentChk\nclick UsePercentChk\nclick DeleteRasterChk\nkey Return",
           "enter HorizontalCountTxt 12.9\nclick MosaicUseRatioButton\nclick GrayRadio\nkey Return",
           "click VerticalRadio\nenter VerticalCountTxt 7\nclick MosaicUseRatioButton\nkey Return",
           "enter TileSpaceHorzTxt 20\nenter HorizontalCountTxt 10\nkey Return",
           "enter TileSpaceHorzTxt 20\nenter TileSpaceHorzTxt 20\nkey Return",
           "resize 900.5 800\nenter NewWidthTxt 10 cm\nkey Return",
           // What cannot be played, and what is left open.
           "enter NewWidthTxt many\nkey Return",
           "enter NewWidthTxt\nkey Return",
           "enter NewWidthTxt 12 %\nkey Return",
           "enter OrigWidthStatic 12",
           "click OrigWidthStatic",
           "click nothing",
           "enter UsePercentChk 1",
           "key Return\nclick GrayRadio",
           "key Escape\nkey Return",
           "click cancelButton\nresize 900 900",
           "enter NewWidthTxt 12",
           "resize 1e9 12",
           "",
       }) {
    ExpectSame(script);
  }
  record.sizeUnavailable = 1;
  for (const char* script : {
           "enter NewWidthTxt 50\nenter VerticalCountTxt 3\nclick DeleteRasterChk\nkey Return",
           "click MosaicUseRatioButton\nkey Return",
           "click GrayRadio",
           "click UsePercentChk",
       }) {
    ExpectSame(script);
  }
}

/// Random gestures, a few thousand in all; a failure prints its seed.
TEST_F(SameRecord, ComesFromRandomScripts) {
  constexpr int kSeeds = 60;
  constexpr int kLines = 40;
  constexpr const char* kFields[] = {"NewWidthTxt",      "NewHeightTxt",     "HorizontalCountTxt",
                                     "VerticalCountTxt", "TileSpaceHorzTxt", "TileSpaceVertTxt"};
  constexpr const char* kClicks[] = {"UsePercentChk",       "DeleteRasterChk", "HorizontalRadio",
                                     "VerticalRadio",       "ColorRadio",      "GrayRadio",
                                     "MosaicUseRatioButton"};
  constexpr const char* kNumbers[] = {"0",    "1",       "2.5",     "33.3333", "8640", "+7",
                                      "1e2",  "100000",  "-4",      "12.75",   "0,5",  "3 .",
                                      "0x10", "\u22125", "1\u00a0", "00012",   "7%",   "2 in"};
  for (int seed = 0; seed < kSeeds; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const auto pick = [&](const auto& list) { return list[random() % std::size(list)]; };
    record.tilesAcross = static_cast<int>(random() % 40);
    record.boundsRight = static_cast<int>(random() % 2000);
    std::string script;
    for (int line = 0; line < kLines; ++line) {
      if (random() % 5 < 2) {
        script += std::string("click ") + pick(kClicks) + "\n";
      } else {
        // Mostly what can be played, since a line that cannot be ends the script.
        const bool isOdd = random() % 100 == 0;
        const std::string number = isOdd ? pick(kNumbers) : std::to_string(random() % 300);
        script += std::string("enter ") + pick(kFields) + " " + number + "\n";
      }
    }
    ExpectSame(script + (random() % 8 != 0 ? "key Return" : "key Escape"));
    if (HasFailure()) return;
  }
}
