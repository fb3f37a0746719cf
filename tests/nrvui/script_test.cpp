#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/nrvcore/error.h"
#include "platform/nrvui/scripted_presenter.h"
#include "testkit/temporary_folder.h"
#include "tests/nrvui/test_dialog.h"

using namespace nrvui::gestures;
using namespace nrvui::ui;

namespace {

/// Plays a script on the dialog. Returns the response, the notifications and the messages.
std::string Play(const std::string& text, TestDialog& test) {
  std::string messages;
  const auto report = [&](const std::string& message) { messages += "|" + message; };
  try {
    ScriptedPresenter presenter(GestureScript::Parse(text, "f"), report);
    const InstalledPresenter installed(presenter);
    test.dialog->RunModal();
    if (presenter.Error()) report(presenter.Error()->what());
  } catch (const nrvcore::FileError& error) {
    report(error.what());
  }
  constexpr const char* kResponses[] = {"open", "ok", "cancel"};
  return kResponses[test.dialog->GetResponse()] + (" " + test.Notified()) + messages;
}

}  // namespace

TEST(Script, PlaysEveryGesture) {
  TestDialog test;
  EXPECT_EQ(Play("\xEF\xBB\xBF# a comment\r\n"
                 "\n"
                 "  enter width 2 in   # as a length\r\n"
                 "enter name two  wörds\n"
                 "enter count\t40\n"
                 "click percent\r\n"
                 "resize 120.5 90\n"
                 "key Return  # and another",
                 test),
            "ok count:1 name:1 percent:1 width:1");
  EXPECT_EQ(test.width->GetNumber(), 144);
  EXPECT_EQ(test.name->GetValue(), u"two  wörds");
  EXPECT_EQ(test.count->GetNumber(), 40);
  EXPECT_EQ(test.dialog->GetContentSize(), (nrvcore::geom::PointT<float>{120, 90}));
}

TEST(Script, ReportsFileLineAndReasonForEachProblem) {
  const struct {
    const char* script;
    const char* result;
  } cases[] = {
      {"enter width 9000\nclick percent\n",
       "cancel percent:1 width:1|f:1: 9000 is more than 8640 pt; it was changed to 8640 pt."
       "|f: the script ended with the dialog open; it was cancelled"},
      {"close\nwave ok", "open |f:2: there is no gesture \"wave\""},
      {"enter", "open |f:1: the expected form is: enter ID TEXT"},
      {"click ok cancel", "open |f:1: the expected form is: click ID"},
      {"key Enter", "open |f:1: the expected form is: key Return, or key Escape"},
      {"close now", "open |f:1: the expected form is: close"},
      {"resize 5 5pt", "open |f:1: the expected form is: resize WIDTH HEIGHT"},
      {"close\n\nclick \xFF", "open |f:3: the line is not UTF-8 text"},
      {"\nenter nowhere 5", "cancel |f:2: the dialog has no control \"nowhere\""},
      {"enter width", "cancel |f:1: A number is missing; the field keeps 300 pt."},
      {"resize 99999 1", "cancel |f:1: A window cannot have the size 99999 × 1."},
  };
  for (const auto& [script, result] : cases) {
    TestDialog test;
    EXPECT_EQ(Play(script, test), result);
  }
}

TEST(Script, NeedsAPresenterAndPropagatesExceptionsOfHandlers) {
  TestDialog test;
  EXPECT_THROW(test.dialog->RunModal(), nrvcore::config::Error) << "without a presenter";
  WhenChanged(*test.ratio, [&] { test.dialog->RunModal(); });
  EXPECT_THROW(Play("click ratio", test), std::logic_error) << "the dialog is already open";
  WhenChanged(*test.ratio, [] { throw std::out_of_range("handler"); });
  EXPECT_THROW(Play("click ratio\nkey Return", test), std::out_of_range);
  EXPECT_EQ(test.dialog->GetResponse(), kNoResponse);
}

TEST(Script, IsReadFromARegularFileUpToTheSizeLimit) {
  const testkit::TemporaryFolder folder;
  for (const auto& [file, reason] : {std::pair(folder.path, ": Is a directory"),
                                     {"/dev/zero", ": the file is larger than 16777216 bytes"}})
    try {
      GestureScript::ReadFile(file);
      ADD_FAILURE() << "no error: " << file;
    } catch (const nrvcore::FileError& error) {
      EXPECT_EQ(error.what(), file.string() + reason);
    }
  folder.Write("long", std::string(10000, '\n').append("close\n"));
  EXPECT_EQ(GestureScript::ReadFile(folder.path / "long").Steps().at(0).line, 10001u);
}
