#include "host/failure_report.h"

#include "tests/host/test_plugin.h"

namespace {

using standin::ListOwner;

int32_t Code(const std::string& text) {
  return text[0] << 24 | text[1] << 16 | text[2] << 8 | text[3];
}

class FailureReportTest : public FrameworkTest {
 protected:
  FailureReportTest() {
    SetOwnTexts(kDefault);
    standin::StringList hostTexts;
    for (const int32_t code : {9, 10, 17, 899, 900}) hostTexts.Set(code, "Host's %s text");
    host.Lists().Replace(ListOwner::kHost, 257, hostTexts);
    EXPECT_EQ(module.StartUp(), ResultCode::kSuccess);
  }

  void SetOwnTexts(const std::string& defaultText) {
    standin::StringList list;
    int32_t index = 0;
    for (const std::string entry : {"-43", "Gone is file %d.", "017", "Own text", "907", "Nine",
                                    "ok", "Short", "PARM", defaultText.c_str()})
      list.Set(++index, entry);
    host.Lists().Replace(ListOwner::kPlugin, 16050, list);
  }

  /// What the person is shown for a code.
  std::string Shown(int32_t code) {
    person.alerts.clear();
    ShowFailure(module.Ref(), ResultCode{code});
    return person.alerts.empty() ? kNothing : person.alerts.back();
  }

  /// A message fails; how many alerts there were since the test began.
  size_t Fail(int32_t code) {
    plan.menuGo = [code] { return ResultCode{code}; };
    EXPECT_EQ(module.Send("VX Menu", "VX Go"), ResultCode{code});
    return person.alerts.size();
  }

  static constexpr const char* kNothing = "no alert";
  static constexpr const char* kDefault = "The operation failed (%s).";
};

TEST_F(FailureReportTest, FindsTheTextThatFitsTheCode) {
  const std::pair<int32_t, const char*> cases[] = {
      {-43, "Gone is file %d."},
      {907, "Nine"},
      {17, "Own text"},
      {'o' << 24 | 'k' << 16, "Short"},
      {Code("PARM"), kDefault},
      {Code("Gone"), "The operation failed (Gone)."},
      {Code("!MEM"), "The operation failed (!MEM)."},
      {9, "The operation failed (9)."},
      {10, "Host's %s text"},
      {899, "Host's %s text"},
      {900, "The operation failed (900)."},
      {INT32_MIN, "The operation failed (-21474836)."},
      {16384, "The operation failed (16384)."},
      {16385, "The operation failed ()."},  // four characters, of which the first ends the text
      {361, kNothing},
      {362, "The operation failed (362)."},
  };
  for (const auto& [code, text] : cases) EXPECT_EQ(Shown(code), text) << code;
  for (const char* silent :
       {"FMT?", "RFSE", "AFTR", "VALD", "MOOT", "TRSH", "CHEK", "CHIT", "TLTK", "pFls", "S!Fd",
        "!Acq", "Bchn", "dsRP", "skpE", "DONE", "ASTR", "STOP"})
    EXPECT_EQ(Shown(Code(silent)), kNothing) << silent;
}

TEST_F(FailureReportTest, FormatsADefaultTextThatHasRoomForTheCode) {
  const std::string text119 = "%s" + std::string(117, 'y');
  const std::pair<std::string, std::string> cases[] = {
      {text119, "12" + std::string(117, 'y')},
      {text119 + 'y', text119 + 'y'},
      {"100%% [%4s]", "100% [  12]"},
      {"%n%s", "%n%s"},
      {"%2147483600s", "%2147483600s"},
      {"%s %s", "%s %s"},
      {"100 %", "100 %"},
      {"no code", "no code"},
  };
  for (const auto& [text, shown] : cases) {
    SetOwnTexts(text);
    EXPECT_EQ(Shown(12), shown);
  }
  standin::StringList endless;
  for (int32_t index = 1; index < 40000; index += 2) {
    endless.Set(index, "none");
    endless.Set(index + 1, index < 32767 ? "Far too many (%s)." : "No index of 16 bits");
  }
  host.Lists().Replace(ListOwner::kPlugin, 16050, endless);
  EXPECT_EQ(Shown(12), "Far too many (12).");
  EXPECT_LE(Operations().Calls("KDM Basic Suite/GetListString"), 17000u);
  host.Lists().Replace(ListOwner::kPlugin, 16050, {});
  EXPECT_EQ(Shown(12), kNothing);
  EXPECT_EQ(Shown(17), "Host's %s text");
  Operations().Refuse("VX Unicode String Suite/CreateFromText", ResultCode::kCannot);
  EXPECT_EQ(Shown(17), kNothing);
}

TEST_F(FailureReportTest, TheSameCodeIsShownOncePerFiveSeconds) {
  EXPECT_EQ(Fail(12), 1u);
  EXPECT_EQ(Fail(12), 1u);
  EXPECT_EQ(Fail(13), 2u);
  EXPECT_EQ(Fail(12), 3u);
  Object()->lastErrorTime -= 3;
  EXPECT_EQ(Fail(12), 3u);
  Object()->lastErrorTime -= 2;
  EXPECT_EQ(Fail(12), 4u);
  EXPECT_EQ(Fail(Code("STOP")), 4u);
  EXPECT_EQ(Fail(12), 4u) << "what is silent does not come between";
  Object()->suppressRepeatedErrors = false;
  EXPECT_EQ(Fail(12), 5u);
}

}  // namespace
