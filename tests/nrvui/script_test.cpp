#include <gtest/gtest.h>

#include <boost/smart_ptr/make_shared.hpp>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "nrvui/test_dialog.h"
#include "platform/nrvui/scripted_presenter.h"

using namespace nrvui::gestures;
using namespace nrvui::ui;

namespace {

/// What a script does to a fresh test dialog.
struct Played {
  explicit Played(const std::string& text)
      : presenter(GestureScript::Parse(text, "f"),
                  [this](const std::string& message) { reports += message + "|"; }) {
    const InstalledPresenter installed(presenter);
    test.dialog->RunModal();
  }

  DialogResponse Response() const { return test.dialog->GetResponse(); }

  TestDialog test;
  std::string reports;
  ScriptedPresenter presenter;
};

std::string ErrorOf(const std::string& text) {
  try {
    const Played played(text);
    EXPECT_EQ(played.Response(), kCancelResponse) << text;
    return played.presenter.Error() ? played.presenter.Error()->what() : "";
  } catch (const ScriptError& error) {
    return error.what();
  }
}

}  // namespace

TEST(Script, PlaysEveryGesture) {
  Played played(
      "\xEF\xBB\xBF# a person's visit\r\n"
      "\n"
      "  enter width 2 in   # as a length\r\n"
      "enter name two  wörds\n"
      "enter count\t40\n"
      "click percent\n"
      "resize 120.5 90\n"
      "key Return");
  EXPECT_EQ(played.Response(), kOkResponse);
  EXPECT_EQ(played.test.width->GetNumber(), 144);
  EXPECT_EQ(played.test.name->GetValue(), u"two  wörds");
  EXPECT_EQ(played.test.count->GetNumber(), 40);
  EXPECT_EQ(played.test.dialog->GetContentSize(), (nrvcore::geom::PointT<float>{120, 90}));
  EXPECT_EQ(played.test.Notified(), "count:1 name:1 percent:1 width:1");
  EXPECT_EQ(played.reports, "");

  EXPECT_EQ(Played("key Escape").Response(), kCancelResponse);
  EXPECT_EQ(Played("close").Response(), kCancelResponse);
}

TEST(Script, NothingIsPulledOrLeftOpenSilently) {
  Played played("enter width 9000\nclick percent\n");
  EXPECT_EQ(played.reports,
            "f:1: 9000 pt is more than 8640 pt; 8640 pt was put in its place.|"
            "f: the script ended with the dialog open; it was cancelled|");
  EXPECT_EQ(played.Response(), kCancelResponse);
  EXPECT_FALSE(played.presenter.Error().has_value());
}

TEST(Script, ErrorsOfHandlersPassThrough) {
  TestDialog test;
  test.ratio->NotifyWhenChanged(boost::make_shared<nrvui::controls::ChangeNotifyFunction>(
      [](auto*) { throw std::out_of_range("handler"); }));
  ScriptedPresenter presenter(GestureScript::Parse("click ratio\nkey Return", "f"));
  const InstalledPresenter installed(presenter);
  EXPECT_THROW(test.dialog->RunModal(), std::out_of_range);
  EXPECT_EQ(test.dialog->GetResponse(), kNoResponse);
}

TEST(Script, WhatCannotBeReadOrPlayedSaysWhereAndCancels) {
  const struct {
    const char* text;
    const char* error;
  } cases[] = {
      {"close\nwave ok", "f:2: there is no gesture \"wave\""},
      {"enter", "f:1: it should read: enter ID TEXT"},
      {"click ok cancel", "f:1: it should read: click ID"},
      {"key Enter", "f:1: it should read: key Return, or key Escape"},
      {"close now", "f:1: it should read: close"},
      {"resize 5 5pt", "f:1: it should read: resize WIDTH HEIGHT"},
      {"close\n\nclick \xFF", "f:3: the line is not UTF-8 text"},
      {"\nenter nowhere 5", "f:2: the dialog has no control \"nowhere\""},
      {"enter width", "f:1: \"\" is not a number."},
      {"click ok\nclick percent", "f:2: The dialog has already closed."},
      {"resize 99999 1", "f:1: A window can't be 99999 × 1 large."},
  };
  for (const auto& [text, error] : cases) EXPECT_EQ(ErrorOf(text), error);
}

TEST(Script, IsReadFromAFileOfAnyLength) {
  EXPECT_THROW(GestureScript::ReadFile(testing::TempDir()), ScriptError) << "a folder";
  const std::filesystem::path file = testing::TempDir() + "long.gestures";
  std::ofstream(file) << std::string(10000, '\n') << "close\n";
  EXPECT_EQ(GestureScript::ReadFile(file).Steps().at(0).line, 10001u);
  std::filesystem::remove(file);
}
