#include "platform/nrvui/gesture.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/nrvcore/error.h"
#include "tests/nrvui/test_dialog.h"

using namespace nrvui::controls;
using namespace nrvui::gestures;
using namespace nrvui::ui;

TEST(Enter, ClampsTheNumberToTheBoundsWithAMessage) {
  const struct {
    const char16_t* entered;
    double lower, upper, number;
    const char16_t* notice;
  } cases[] = {
      {u"2 in", 0, 8640, 144, u""},
      {u"99999999999999999999", 0, 8640, 8640,
       u"99999999999999999999 is more than 8640 pt; it was changed to 8640 pt."},
      {u"-1 mm", 1, 8640, 1, u"-1 mm is less than 1 pt; it was changed to 1 pt."},
      {u"5", 0, -1, 0, u"5 is more than 0 pt; it was changed to 0 pt."},
      {u"8.7", 0, 8.69999981, 8.69999981, u""},  // the bound as the field shows it
      {u"0", 0, -1, 0, u""},  // an upper bound below the lower one counts as the lower one
  };
  for (const auto& [entered, lower, upper, number, notice] : cases) {
    TestDialog test;
    test.width->SetLowerBound(lower);
    test.width->SetUpperBound(upper);
    const Outcome outcome = Enter(*test.dialog, *test.width, entered);
    EXPECT_EQ(Describe(outcome), notice);
    EXPECT_EQ(outcome.IsClamped(), *notice != 0);
    EXPECT_EQ(outcome.entered.IsEmpty(), *notice == 0);
    EXPECT_EQ(test.width->GetNumber(), number);
    EXPECT_EQ(test.Notified(), "width:1");
  }
}

TEST(Enter, NotifiesNobodyIfTheValueStaysOrTheEntryIsRefused) {
  TestDialog test;
  EXPECT_FALSE(Enter(*test.dialog, *test.width, u" 300.0 px ").changed);
  EXPECT_EQ(Enter(*test.dialog, *test.width, u"5 %").refusal, Refusal::kOtherUnit);
  EXPECT_EQ(Enter(*test.dialog, *test.label, u"5").refusal, Refusal::kNotEditable);
  EXPECT_EQ(Click(*test.dialog, *test.width).refusal, Refusal::kNotClickable);
  EXPECT_EQ(test.width->GetNumber(), 300);
  test.width->SetNumber(NAN);
  EXPECT_EQ(Enter(*test.dialog, *test.width, test.width->GetValue()).refusal, Refusal::kNotANumber);
  EXPECT_EQ(test.Notified(), "");
}

TEST(Enter, ConfirmingAValueThatCodeSetStoresTheEnteredNumber) {
  TestDialog test;
  test.width->SetNumber(9000);
  EXPECT_TRUE(Enter(*test.dialog, *test.width, u"9000 pt").IsClamped());
  test.width->SetNumber(99.99996);
  Enter(*test.dialog, *test.width, u"100 pt");
  EXPECT_EQ(test.width->GetNumber(), 100) << "although the field showed 100 before";
  EXPECT_EQ(test.Notified(), "width:2");
}

TEST(SetValue, RefusesTextLikeEnterAndNotifiesNobody) {
  TestDialog test;
  for (const char16_t* text : {u"many", u"5 %"}) {
    try {
      test.width->SetValue(text);
      ADD_FAILURE() << "no error";
    } catch (const nrvcore::config::Error& error) {
      EXPECT_EQ(error.Text(), Describe(Enter(*test.dialog, *test.width, text)));
    }
  }
  test.percent->SetChecked(true);
  EXPECT_EQ(test.Notified(), "");
}

TEST(Click, TogglesCheckboxesAndMovesTheSelectionWithinARadioGroup) {
  TestDialog test;
  EXPECT_TRUE(Click(*test.dialog, *test.percent).changed);
  EXPECT_TRUE(test.percent->IsChecked());
  Click(*test.dialog, *test.percent);
  EXPECT_FALSE(test.percent->IsChecked());
  EXPECT_EQ(test.Notified(), "percent:2");

  EXPECT_FALSE(Click(*test.dialog, *test.color).changed) << "it was selected before";
  EXPECT_EQ(test.Notified(), "");
  Click(*test.dialog, *test.gray);
  EXPECT_EQ(test.gray->GetValue(), kRadioOn);
  EXPECT_EQ(test.color->GetValue(), kRadioOff);
  EXPECT_EQ(test.down->GetValue(), kRadioOn) << "another group";
  EXPECT_EQ(test.Notified(), "gray:1") << "the button that lost its selection stays silent";
}

TEST(Click, ClosesTheDialogOnlyOnTheOkAndCancelButtons) {
  TestDialog test;
  EXPECT_FALSE(Click(*test.dialog, *test.ratio).IsRefused());
  EXPECT_EQ(test.dialog->GetResponse(), kNoResponse);
  Click(*test.dialog, *test.ok);
  EXPECT_EQ(test.dialog->GetResponse(), kOkResponse);
  EXPECT_EQ(test.Notified(), "ok:1 ratio:1");

  TestDialog closedByHandler;
  WhenChanged(*closedByHandler.ok, [&] { closedByHandler.dialog->DefaultCloseCancel(); });
  Click(*closedByHandler.dialog, *closedByHandler.ok);
  EXPECT_EQ(closedByHandler.dialog->GetResponse(), kCancelResponse);
}

TEST(Gestures, DoNothingOnHiddenOrDisabledControlsOrAClosedDialog) {
  for (const Refusal refusal : {Refusal::kHidden, Refusal::kDisabled, Refusal::kDialogClosed}) {
    TestDialog test;
    if (refusal == Refusal::kHidden) test.panel->UI_Show(false);
    if (refusal == Refusal::kDialogClosed) test.dialog->DefaultCloseCancel();
    for (const auto& child : Children(*test.panel)) {
      auto& control = dynamic_cast<UI_ControlView&>(*child);
      control.SetDisabled(refusal == Refusal::kDisabled);
      EXPECT_EQ(Click(*test.dialog, control).refusal, refusal);
    }
    EXPECT_EQ(Enter(*test.dialog, *test.width, u"5").refusal, refusal);
    EXPECT_EQ(test.width->GetNumber(), 300);
    EXPECT_FALSE(test.percent->IsChecked());
    EXPECT_NE(test.dialog->GetResponse(), kOkResponse);
    EXPECT_EQ(test.Notified(), "");
  }
}

TEST(Gestures, ReturnAndEscapeActLikeTheOkAndCancelButtons) {
  const struct {
    bool areSet, areDisabled, areShown;
    DialogResponse onReturn, onEscape;
  } cases[] = {
      {true, false, true, kOkResponse, kCancelResponse},
      {false, false, true, kNoResponse, kCancelResponse},
      {true, true, true, kNoResponse, kNoResponse},
      {true, false, false, kNoResponse, kCancelResponse},
  };
  for (const auto& [areSet, areDisabled, areShown, onReturn, onEscape] : cases) {
    TestDialog test;
    test.dialog->SetOkButton(areSet ? test.ok : nullptr);
    test.dialog->SetCancelButton(areSet ? test.cancel : nullptr);
    test.ok->SetDisabled(areDisabled);
    test.cancel->SetDisabled(areDisabled);
    test.panel->UI_Show(areShown);
    for (const auto& [key, response] :
         {std::pair(Key::kReturn, onReturn), std::pair(Key::kEscape, onEscape)}) {
      const Outcome outcome = Press(*test.dialog, key);
      EXPECT_EQ(outcome.refusal, response ? Refusal::kNone : Refusal::kStaysOpen);
      EXPECT_EQ(test.dialog->GetResponse(), response);
      test.dialog->SetResponse(kNoResponse);
    }
    EXPECT_FALSE(Close(*test.dialog).IsRefused());
    EXPECT_EQ(test.dialog->GetResponse(), kCancelResponse);
    EXPECT_EQ(Press(*test.dialog, Key::kReturn).refusal, Refusal::kDialogClosed);
    EXPECT_EQ(Close(*test.dialog).refusal, Refusal::kDialogClosed);
    EXPECT_EQ(Resize(*test.dialog, {900, 900}).refusal, Refusal::kDialogClosed);
  }
  const boost::intrusive_ptr<PlainDialog> boxless = new PlainDialog(false);
  EXPECT_EQ(Close(*boxless).refusal, Refusal::kNoCloseBox);
}

TEST(Gestures, ResizeIsClampedToTheMinimumSize) {
  TestDialog test;
  test.dialog->SetMinimumSize({80, 60});
  EXPECT_TRUE(Resize(*test.dialog, {90, 70}).changed);
  EXPECT_FALSE(Resize(*test.dialog, {90, 70}).changed);
  const Outcome outcome = Resize(*test.dialog, {90.5, 10});
  EXPECT_EQ(Describe(outcome), u"90.5 × 10 is less than 90 × 60; it was changed to 90 × 60.");
  for (const float wrong : {-1.0f, 32768.0f, NAN}) {
    EXPECT_EQ(Resize(*test.dialog, {100, wrong}).refusal, Refusal::kNotASize);
  }
  EXPECT_EQ(test.dialog->GetContentSize(), (nrvcore::geom::PointT<float>{90, 60}));
  EXPECT_EQ(test.dialog->GetRootView()->UI_GetLocalRectF(),
            (nrvcore::geom::RectT<float>{0, 0, 90, 60}));
  EXPECT_TRUE(Resize(*test.dialog, {0, 32767}).IsClamped());
  test.dialog->SetMinimumSize({NAN, 1e30f});
  EXPECT_EQ(test.dialog->GetMinimumSize(), (nrvcore::geom::PointT<float>{0, 1e6f}));
  test.dialog->SetMinimumSize({5, -5});
  EXPECT_EQ(test.dialog->GetMinimumSize(), (nrvcore::geom::PointT<float>{5, 0}));
}
