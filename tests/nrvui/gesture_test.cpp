#include "platform/nrvui/gesture.h"

#include <gtest/gtest.h>

#include <boost/smart_ptr/make_shared.hpp>
#include <cmath>

#include "nrvcore/translation.h"
#include "nrvui/test_dialog.h"
#include "platform/nrvcore/error.h"

using namespace nrvui::controls;
using namespace nrvui::gestures;
using namespace nrvui::ui;

TEST(Enter, TakesANumberOrPullsItToTheNearestBoundAndSaysSo) {
  const struct {
    const char16_t* entered;
    double lower, upper, number;
    const char16_t* notice;
  } cases[] = {
      {u"2 in", 0, 8640, 144, u""},
      {u"9000", 0, 8640, 8640, u"9000 pt is more than 8640 pt; 8640 pt was put in its place."},
      {u"-1 mm", 1, 8640, 1, u"-2.8346 pt is less than 1 pt; 1 pt was put in its place."},
      {u"5", 0, -1, 0, u"5 pt is more than 0 pt; 0 pt was put in its place."},
      {u"0", 0, -1, 0, u""},  // an upper bound below the lower one counts as the lower one
      {u"-5", 0, -1, 0, u"-5 pt is less than 0 pt; 0 pt was put in its place."},
  };
  for (const auto& [entered, lower, upper, number, notice] : cases) {
    TestDialog test;
    test.width->SetLowerBound(lower);
    test.width->SetUpperBound(upper);
    const Outcome outcome = Enter(*test.dialog, *test.width, entered);
    EXPECT_FALSE(outcome.IsRefused());
    EXPECT_EQ(Describe(outcome), notice);
    EXPECT_EQ(outcome.IsPulled(), *notice != 0);
    EXPECT_EQ(test.width->GetNumber(), number);
    EXPECT_EQ(test.Notified(), "width:1");
  }
}

TEST(Enter, ANumberThatStaysNotifiesNobodyAndLosesNoDecimals) {
  TestDialog test;
  for (const char16_t* text : {u"300", u"300 pt", u" 300.0 px "}) {
    EXPECT_FALSE(Enter(*test.dialog, *test.width, text).changed);
  }
  test.width->SetNumber(100.0 / 3);
  EXPECT_FALSE(Enter(*test.dialog, *test.width, test.width->GetValue()).changed);
  EXPECT_EQ(test.width->GetNumber(), 100.0 / 3);
  EXPECT_EQ(test.Notified(), "");

  test.width->SetNumber(9000);
  EXPECT_TRUE(Enter(*test.dialog, *test.width, test.width->GetValue()).IsPulled())
      << "code may set what a person may not confirm";
  EXPECT_EQ(test.Notified(), "width:1");
}

TEST(Enter, WhatIsRefusedChangesNothing) {
  TestDialog test;
  test.width->SetNumber(NAN);
  EXPECT_EQ(Enter(*test.dialog, *test.width, test.width->GetValue()).refusal, Refusal::kNotANumber);
  test.width->SetNumber(300);
  const Outcome outcome = Enter(*test.dialog, *test.width, u"many");
  EXPECT_EQ(Describe(outcome), u"\"many\" is not a number.");
  EXPECT_EQ(Enter(*test.dialog, *test.width, u"5 %").refusal, Refusal::kOtherUnit);
  EXPECT_EQ(Enter(*test.dialog, *test.label, u"5").refusal, Refusal::kNotEditable);
  EXPECT_EQ(Click(*test.dialog, *test.width).refusal, Refusal::kNotClickable);
  EXPECT_EQ(test.width->GetNumber(), 300);
  EXPECT_THROW(test.width->SetValue(u"many"), nrvcore::config::Error);
  EXPECT_EQ(test.Notified(), "");
}

TEST(Enter, TextFieldsTakeAnything) {
  TestDialog test;
  EXPECT_TRUE(Enter(*test.dialog, *test.name, u"many").changed);
  EXPECT_FALSE(Enter(*test.dialog, *test.name, u"many").changed);
  EXPECT_EQ(test.name->GetValue(), u"many");
  EXPECT_EQ(test.Notified(), "name:1");
}

TEST(Enter, SpeaksTheUsersLanguage) {
  const Translation german(
      "de", {{"$$$/nrvcore/Locale/DecimalSign=.", ","},
             {"$$$/nrvui/Gesture/PulledDown=%1 is more than %2; %2 was put in its place.",
              "%1 ist zu viel, es bleibt bei %2."}});
  TestDialog test;
  test.width->SetUpperBound(10.5);
  EXPECT_EQ(Describe(Enter(*test.dialog, *test.width, u"12,5")),
            u"12,5 pt ist zu viel, es bleibt bei 10,5 pt.");
  EXPECT_EQ(test.width->GetValue(), u"10,5 pt");
}

TEST(Click, TogglesAndSelectsWithinTheGroup) {
  TestDialog test;
  Click(*test.dialog, *test.percent);
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

  test.across->SetValue(kRadioOn);
  EXPECT_EQ(test.down->GetValue(), kRadioOn) << "code sets one button and no other";
  EXPECT_EQ(test.Notified(), "");
}

TEST(Click, ButtonsNotifyAndTheRegisteredOnesClose) {
  TestDialog test;
  EXPECT_FALSE(Click(*test.dialog, *test.ratio).IsRefused());
  EXPECT_EQ(test.dialog->GetResponse(), kNoResponse);
  Click(*test.dialog, *test.ok);
  EXPECT_EQ(test.dialog->GetResponse(), kOkResponse);
  EXPECT_EQ(test.Notified(), "ok:1 ratio:1");

  TestDialog cancelled;
  Click(*cancelled.dialog, *cancelled.cancel);
  EXPECT_EQ(cancelled.dialog->GetResponse(), kCancelResponse);

  TestDialog closedByHandler;
  closedByHandler.ok->NotifyWhenChanged(boost::make_shared<ChangeNotifyFunction>(
      [&](auto*) { closedByHandler.dialog->DefaultCloseCancel(); }));
  Click(*closedByHandler.dialog, *closedByHandler.ok);
  EXPECT_EQ(closedByHandler.dialog->GetResponse(), kCancelResponse);
}

TEST(Gestures, OutOfReachDoNothing) {
  const struct {
    Refusal refusal;
    void (*arrange)(TestDialog&);
  } cases[] = {
      {Refusal::kHidden, [](TestDialog& test) { test.panel->UI_Show(false); }},
      {Refusal::kDialogClosed, [](TestDialog& test) { test.dialog->DefaultCloseCancel(); }},
      {Refusal::kDisabled,
       [](TestDialog& test) {
         for (const auto& child : Children(*test.panel)) {
           dynamic_cast<UI_ControlView&>(*child).SetDisabled(true);
         }
       }},
  };
  for (const auto& [refusal, arrange] : cases) {
    TestDialog test;
    arrange(test);
    const DialogResponse response = test.dialog->GetResponse();
    EXPECT_EQ(Enter(*test.dialog, *test.width, u"5").refusal, refusal);
    for (const auto& child : Children(*test.panel)) {
      EXPECT_EQ(Click(*test.dialog, *child).refusal, refusal);
    }
    EXPECT_EQ(test.width->GetNumber(), 300);
    EXPECT_FALSE(test.percent->IsChecked());
    EXPECT_EQ(test.down->GetValue(), kRadioOn);
    EXPECT_EQ(test.dialog->GetResponse(), response);
    EXPECT_EQ(test.Notified(), "");
  }
}

TEST(Gestures, KeysAndCloseBoxSayWhetherTheyClosed) {
  TestDialog test;
  test.ok->SetDisabled(true);
  EXPECT_EQ(Press(*test.dialog, Key::kReturn).refusal, Refusal::kStaysOpen);
  test.ok->SetDisabled(false);
  EXPECT_FALSE(Press(*test.dialog, Key::kReturn).IsRefused());
  EXPECT_EQ(test.dialog->GetResponse(), kOkResponse);
  EXPECT_EQ(Press(*test.dialog, Key::kEscape).refusal, Refusal::kDialogClosed);
  EXPECT_EQ(Close(*test.dialog).refusal, Refusal::kDialogClosed);
  EXPECT_EQ(test.dialog->GetResponse(), kOkResponse);

  const boost::intrusive_ptr<PlainDialog> boxless = new PlainDialog(false);
  EXPECT_EQ(Close(*boxless).refusal, Refusal::kNoCloseBox);
  EXPECT_FALSE(Press(*boxless, Key::kEscape).IsRefused());
}

TEST(Gestures, ResizeKeepsToTheMinimum) {
  TestDialog test;
  test.dialog->SetMinimumSize({80, 60});
  EXPECT_TRUE(Resize(*test.dialog, {90, 70}).changed);
  EXPECT_FALSE(Resize(*test.dialog, {90, 70}).changed);
  const Outcome outcome = Resize(*test.dialog, {90.5, 10});
  EXPECT_EQ(Describe(outcome), u"90.5 × 10 is less than 90 × 60; 90 × 60 was put in its place.");
  for (const float wrong : {-1.0f, 1e9f, NAN}) {
    EXPECT_EQ(Resize(*test.dialog, {100, wrong}).refusal, Refusal::kNotASize);
  }
  EXPECT_EQ(test.dialog->GetContentSize(), (nrvcore::geom::PointT<float>{90, 60}));
}
