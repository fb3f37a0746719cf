#include <gtest/gtest.h>

#include <boost/smart_ptr/make_shared.hpp>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "nrvui/test_dialog.h"
#include "platform/nrvui/scripted_presenter.h"

using namespace nrvui::controls;
using namespace nrvui::gestures;
using namespace nrvui::ui;

namespace {

/// What a script does to a fresh test dialog.
struct Played {
  explicit Played(const std::string& text)
      : presenter(GestureScript::Parse(text, "test.gestures"),
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
    GestureScript::Parse(text, "f");
  } catch (const ScriptError& error) {
    return error.what();
  }
  return "";
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
  EXPECT_FALSE(played.presenter.Error().has_value());
  EXPECT_EQ(played.Response(), kOkResponse);
  EXPECT_EQ(played.test.width->GetNumber(), 144);
  EXPECT_EQ(played.test.name->GetValue(), u"two  wörds");
  EXPECT_EQ(played.test.count->GetNumber(), 40);
  EXPECT_EQ(played.test.dialog->GetContentSize(), (nrvcore::geom::PointT<float>{120, 90}));
  EXPECT_EQ(played.test.Notified(), "count:1 name:1 percent:1 width:1");
  EXPECT_EQ(played.reports, "");

  EXPECT_EQ(Played("key Escape").Response(), kCancelResponse);
  EXPECT_EQ(Played("close").Response(), kCancelResponse);
  EXPECT_EQ(Played("click ok").Response(), kOkResponse);
}

TEST(Script, NothingIsPulledOrLeftOpenSilently) {
  Played played("enter width 9000\nclick percent\n");
  EXPECT_EQ(played.reports,
            "test.gestures:1: 9000 pt is more than 8640 pt; 8640 pt was put in its place.|"
            "test.gestures: the script ended with the dialog open; it was cancelled|");
  EXPECT_EQ(played.Response(), kCancelResponse);
  EXPECT_FALSE(played.presenter.Error().has_value());
}

TEST(Script, ALineThatCannotBePlayedCancelsAndIsKept) {
  const struct {
    const char* script;
    const char* error;
  } cases[] = {
      {"\nenter nowhere 5", "test.gestures:2: the dialog has no control \"nowhere\""},
      {"enter WIDTH 5", "test.gestures:1: the dialog has no control \"WIDTH\""},
      {"enter width", "test.gestures:1: \"\" is not a number."},
      {"click label", "test.gestures:1: There is nothing to click here."},
      {"click ok\nclick percent", "test.gestures:2: The dialog has already closed."},
      {"resize 99999 1", "test.gestures:1: A window can't be 99999 × 1 large."},
  };
  for (const auto& [script, error] : cases) {
    Played played(script);
    ASSERT_TRUE(played.presenter.Error().has_value()) << script;
    EXPECT_STREQ(played.presenter.Error()->what(), error);
    EXPECT_EQ(played.Response(), kCancelResponse) << script;
  }
}

TEST(Script, ErrorsOfHandlersPassThrough) {
  TestDialog test;
  test.ratio->NotifyWhenChanged(
      boost::make_shared<ChangeNotifyFunction>([](auto*) { throw std::out_of_range("handler"); }));
  ScriptedPresenter presenter(GestureScript::Parse("click ratio\nkey Return", "f"));
  const InstalledPresenter installed(presenter);
  EXPECT_THROW(test.dialog->RunModal(), std::out_of_range);
  EXPECT_FALSE(presenter.Error().has_value());
  EXPECT_EQ(test.dialog->GetResponse(), kNoResponse);
}

TEST(Script, WhatCannotBeReadSaysWhere) {
  const struct {
    const char* text;
    const char* error;
  } cases[] = {
      {"close\nwave ok", "f:2: there is no gesture \"wave\""},
      {"Click ok", "f:1: there is no gesture \"Click\""},
      {"enter", "f:1: it should read: enter ID TEXT"},
      {"click", "f:1: it should read: click ID"},
      {"click ok cancel", "f:1: it should read: click ID"},
      {"key Enter", "f:1: it should read: key Return, or key Escape"},
      {"close now", "f:1: it should read: close"},
      {"resize 5", "f:1: it should read: resize WIDTH HEIGHT"},
      {"resize 5 5pt", "f:1: it should read: resize WIDTH HEIGHT"},
      {"resize 5 5 5", "f:1: it should read: resize WIDTH HEIGHT"},
      {"close\n\nclick \xFF", "f:3: the line is not UTF-8 text"},
  };
  for (const auto& [text, error] : cases) EXPECT_EQ(ErrorOf(text), error);
  EXPECT_EQ(ErrorOf("# nothing\n\n"), "");

  const auto folder = std::filesystem::temp_directory_path() / "script_test";
  std::filesystem::create_directories(folder);
  const auto file = folder / "long.gestures";
  std::ofstream(file) << std::string(10000, '\n') << "close\n";
  EXPECT_EQ(GestureScript::ReadFile(file).Steps().at(0).line, 10001u);
  for (const auto& path : {folder, folder / "no such file.gestures"}) {
    try {
      GestureScript::ReadFile(path);
      ADD_FAILURE() << path;
    } catch (const ScriptError& error) {
      EXPECT_EQ(error.File(), path.string());
      EXPECT_EQ(error.Line(), 0u);
      EXPECT_EQ(error.what(), path.string() + ": the gesture file can't be read");
    }
  }
  std::filesystem::remove_all(folder);
}
