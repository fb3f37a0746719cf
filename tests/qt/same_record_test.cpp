#include <cstring>
#include <tuple>

#include "platform/nrvui/scripted_presenter.h"
#include "tests/qt/test_window.h"

using nrvui::gestures::GestureScript;
using nrvui::gestures::ScriptedPresenter;
using nrvui::gestures::Step;
using nrvui::gestures::Verb;

namespace {

/// Plays the script with the mouse and the keys of a user, who leaves each field by Tab.
void PlayByHand(const GestureScript& script, const OpenWindow& open) {
  for (const Step& step : script.Steps()) {
    const char* const target = step.target.c_str();
    switch (step.verb) {
      case Verb::kEnter:
        open.Type(target, step.text.c_str());
        open.Key(Qt::Key_Tab);
        break;
      case Verb::kClick:
        open.Click(target);
        break;
      case Verb::kKey:
        open.Key(step.target == "Return" ? Qt::Key_Return : Qt::Key_Escape);
        break;
      case Verb::kClose:
        open.window.close();
        break;
      case Verb::kResize:
        open.window.resize(int(step.width), int(step.height));
    }
  }
}

}  // namespace

class SameRecord : public MosaicWindowTest {
 protected:
  using Played = std::pair<std::string, std::string>;  // reports; code, record and state

  Played Play(const std::function<ResultCode(std::string& reports)>& run) {
    const auto given = std::pair(record, state);
    Played played;
    const ResultCode code = run(played.first);
    played.second = testing::PrintToString(std::tuple(int(code), record, state));
    std::tie(record, state) = given;
    return played;
  }

  /// With a ScriptedPresenter, or with a QtPresenter that plays the script on its window.
  template <class Presenter>
  Played PlayOn(const GestureScript& script) {
    return Play([&](std::string& reports) {
      const auto report = [&](const std::string& text) { reports += text + '\n'; };
      std::optional<Presenter> presenter;
      if constexpr (std::is_same_v<Presenter, ScriptedPresenter>) {
        presenter.emplace(script, report);
      } else {
        presenter.emplace().PlayScript(script, report);
      }
      const ResultCode code = RunWith(*presenter);
      if (presenter->Error()) report(presenter->Error()->what());
      return code;
    });
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
      {"enter NewWidthTxt many\nkey Escape"},
      {"enter NewWidthTxt 12"},
      {""},
      {"enter NewWidthTxt 50\nenter VerticalCountTxt 3\nclick DeleteRasterChk\nkey Return", true},
      {"click MosaicUseRatioButton", true},
  };
  for (const auto& [text, isSizeUnknown] : cases) {
    const GestureScript script = GestureScript::Parse(text, "script");
    record.sizeUnavailable = isSizeUnknown;
    const Played scripted = PlayOn<ScriptedPresenter>(script);
    EXPECT_EQ(PlayOn<qtui::QtPresenter>(script), scripted) << text;
    const Played byHand = Play([&](std::string&) {
      return Run([&](const OpenWindow& open) { PlayByHand(script, open); });
    });
    EXPECT_EQ(byHand.second, scripted.second) << text;
  }
}

TEST_F(SameRecord, IsShownWhileAScriptPlaysUntilALineIsRefused) {
  qtui::QtPresenter presenter;
  FunctionListener listener(presenter);
  presenter.PlayScript(
      GestureScript::Parse("enter TileSpaceHorzTxt -3\nclick GrayRadio\nclick Nothing", "script"));
  QWidget* shown = nullptr;
  QString message;
  listener.WhenPainted([&](QWidget& window) { shown = &window; });
  listener.WhenChanged([&](const nrvui::ui::UI_Dialog&, const auto&) {
    if (shown != nullptr) message = OpenWindow(*shown).Message();
    return qtui::Summary();
  });
  EXPECT_EQ(RunWith(presenter), ResultCode::kCancelled);
  EXPECT_TRUE(message.startsWith("Horizontal: -3 is less than 0 pt;")) << message.toStdString();
  ASSERT_TRUE(presenter.Error());
  EXPECT_STREQ(presenter.Error()->what(), "script:3: the dialog has no control \"Nothing\"");
}
