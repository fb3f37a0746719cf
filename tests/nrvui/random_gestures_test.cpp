#include <gtest/gtest.h>

#include <random>
#include <set>

#include "nrvui/test_dialog.h"
#include "platform/nrvui/gesture.h"

using namespace nrvui::controls;
using namespace nrvui::gestures;

namespace {

constexpr int kSeeds = 200;
constexpr int kGesturesPerSeed = 100;

nrvcore::UTF16String RandomText(std::mt19937& random) {
  constexpr std::u16string_view kCharacters =
      u"0123456789..,,--+e ptmcinx%\u2212\u00A0\xD800\xFFFF";
  std::u16string text;
  for (auto length = random() % 8; length > 0; --length) {
    text += kCharacters[random() % kCharacters.size()];
  }
  return nrvcore::UTF16String(text);
}

}  // namespace

/// Whatever a person does, in whatever state code left the controls: every outcome is one of the
/// possible ones, bounds hold after an entry, a group has one selection, and the touched control's
/// handler hears of a change and nobody else of anything.
TEST(RandomGestures, KeepTheRules) {
  for (int seed = 0; seed < kSeeds; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    TestDialog test;
    const auto controls = Children(*test.panel);
    const auto pick = [&]() -> UI_ControlView& {
      return dynamic_cast<UI_ControlView&>(*controls[random() % controls.size()]);
    };
    for (int i = 0; i < kGesturesPerSeed; ++i) {
      if (random() % 4 == 0) pick().SetDisabled(random() % 2);
      if (random() % 4 == 0) pick().UI_Show(random() % 4 != 0);
      if (random() % 8 == 0) test.width->SetUpperBound(static_cast<int>(random() % 50) - 5);
      ASSERT_EQ(test.Notified(), "");

      UI_ControlView& touched = pick();
      const std::string id(touched.UI_GetNodeID().View());
      const bool enter = random() % 2;
      const double before = test.width->GetNumber();
      const Outcome outcome =
          enter ? Enter(*test.dialog, touched, RandomText(random)) : Click(*test.dialog, touched);
      const bool isButton = dynamic_cast<UI_Button*>(&touched) != nullptr;
      const bool notifies = outcome.changed || (isButton && !outcome.IsRefused());
      ASSERT_EQ(test.Notified(), notifies ? id + ":1" : "");
      ASSERT_EQ(outcome.kind == OutcomeKind::kDone, Describe(outcome).IsEmpty());
      if (enter && id == "width" && !outcome.IsRefused()) {
        ASSERT_GE(test.width->GetNumber(), 0);
        ASSERT_LE(test.width->GetNumber(), std::max(0.0, test.width->GetUpperBound()));
      } else {
        ASSERT_EQ(test.width->GetNumber(), before);
      }
      ASSERT_EQ(test.color->GetValue() + test.gray->GetValue(), 1);
      ASSERT_EQ(test.across->GetValue() + test.down->GetValue(), 1);
      if (test.dialog->GetResponse() != nrvui::ui::kNoResponse) {
        ASSERT_TRUE(id == "ok" || id == "cancel");
        test.dialog->SetResponse(nrvui::ui::kNoResponse);
      }
    }
  }
}
