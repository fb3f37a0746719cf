#include "host/failure_report.h"

#include "host/error.h"
#include "host/test_plugin.h"

namespace {

using standin::ListOwner;

constexpr const char* kDefault = "The operation failed (%s).";

standin::StringList ErrorTexts(const std::string& defaultText = kDefault) {
  standin::StringList list;
  list.Set(1, "-43");
  list.Set(2, "The file is %d gone.");
  list.Set(3, "PARM");
  list.Set(4, defaultText);
  return list;
}

class FailureReportTest : public FrameworkTest {
 protected:
  FailureReportTest() {
    host.Lists().Replace(ListOwner::kPlugin, 16050, ErrorTexts());
    standin::StringList hostTexts;
    hostTexts.Set(500, "Five %s hundred");
    host.Lists().Replace(ListOwner::kHost, 257, hostTexts);
  }

  /// What the person is shown for a code, "" for nothing.
  std::string Shown(int32_t code) {
    person.alerts.clear();
    ShowFailure(module.Ref(), ResultCode{code});
    return person.alerts.empty() ? "" : person.alerts.back();
  }

  ResultCode Fail(int32_t code) {
    plan.menuGo = [code] { return ResultCode{code}; };
    return module.Send("VX Menu", "VX Go");
  }
};

TEST_F(FailureReportTest, FindsTheTextThatFitsTheCode) {
  ASSERT_EQ(module.StartUp(), ResultCode::kSuccess);
  EXPECT_EQ(Shown(-43), "The file is %d gone.");
  EXPECT_EQ(Shown(500), "Five %s hundred");
  EXPECT_EQ(Shown(FourCharCode("!MEM")), "The operation failed (!MEM).");
  EXPECT_EQ(Shown(12), "The operation failed (12).");
  EXPECT_EQ(Shown(-2147483647 - 1), "The operation failed (-21474836).");
  EXPECT_EQ(Shown(16384), "The operation failed (16384).");
  EXPECT_EQ(Shown(FourCharCode("PARM")), kDefault) << "found under its key, so not formatted";
  for (const char* silent : {"STOP", "pFls", "FMT?", "S!Fd"}) {
    const std::string text = silent;
    EXPECT_EQ(Shown(text[0] << 24 | text[1] << 16 | text[2] << 8 | text[3]), "") << silent;
  }
  EXPECT_EQ(Shown(361), "");
  EXPECT_NE(Shown(362), "");

  const std::string longText = std::string(100, 'x') + " %s" + std::string(17, 'y');
  host.Lists().Replace(ListOwner::kPlugin, 16050, ErrorTexts(longText));
  EXPECT_EQ(Shown(12), longText) << "120 characters leave no room for the code";
  host.Lists().Replace(ListOwner::kPlugin, 16050, ErrorTexts("100%% [%4s]"));
  EXPECT_EQ(Shown(12), "100% [  12]");
  for (const char* damaged : {"%n%s", "%s %s", "100 %", "no code"}) {
    host.Lists().Replace(ListOwner::kPlugin, 16050, ErrorTexts(damaged));
    EXPECT_EQ(Shown(12), damaged);
  }
  standin::StringList endless;
  for (int32_t index = 1; index < 20000; index += 2) {
    endless.Set(index, "none");
    endless.Set(index + 1, "Far too many (%s).");
  }
  host.Lists().Replace(ListOwner::kPlugin, 16050, endless);
  EXPECT_EQ(Shown(12), "Far too many (12).");
  host.Lists().Replace(ListOwner::kPlugin, 16050, {});
  EXPECT_EQ(Shown(12), "");
  EXPECT_EQ(Shown(500), "Five %s hundred");
}

TEST_F(FailureReportTest, TheSameCodeIsShownOncePerFiveSeconds) {
  ASSERT_EQ(module.StartUp(), ResultCode::kSuccess);
  EXPECT_EQ(Fail(12), ResultCode{12});
  EXPECT_EQ(Fail(12), ResultCode{12});
  EXPECT_EQ(person.alerts.size(), 1u);
  EXPECT_EQ(Fail(13), ResultCode{13});
  EXPECT_EQ(Fail(12), ResultCode{12});
  EXPECT_EQ(person.alerts.size(), 3u);

  Object()->lastErrorTime -= 3;
  (void)Fail(12);
  EXPECT_EQ(person.alerts.size(), 3u);
  Object()->lastErrorTime -= 2;
  (void)Fail(12);
  EXPECT_EQ(person.alerts.size(), 4u);
  EXPECT_EQ(Fail(FourCharCode("STOP")), ResultCode::kCancelled);
  EXPECT_EQ(person.alerts.size(), 4u);
}

TEST_F(FailureReportTest, AnImpatientPluginShowsEveryCode) {
  plan.suppressRepeatedErrors = false;
  ASSERT_EQ(module.StartUp(), ResultCode::kSuccess);
  (void)Fail(12);
  (void)Fail(12);
  EXPECT_EQ(person.alerts.size(), 2u);
}

TEST_F(FailureReportTest, AFailedStartUpIsShownThoughNoSuiteIsHeld) {
  host.Suites().SetAbsent("QP Blocks Suite");
  const ResultCode code = module.StartUp();
  EXPECT_NE(code, ResultCode::kSuccess);
  EXPECT_EQ(person.alerts.size(), 1u);
  EXPECT_EQ(Suite<KDMBasicSuite>(), nullptr);
  EXPECT_TRUE(host.Leftovers().empty());
}

TEST_F(FailureReportTest, ItsOwnFailuresOnlyMeanThatNothingIsShown) {
  ASSERT_EQ(module.StartUp(), ResultCode::kSuccess);
  const auto boom = std::make_exception_ptr(vx::Error(ResultCode::kParameter));
  for (const char* operation :
       {"acquire/Glossa Host Init Suite", "Glossa Host Init Suite/GetHostModule",
        "KDM Basic Suite/GetListString", "VX Unicode String Suite/CreateFromText",
        "VX User Suite/ShowErrorAlert"}) {
    SCOPED_TRACE(operation);
    person.alerts.clear();
    Operations().Throw(operation, boom);
    EXPECT_EQ(Fail(500), ResultCode{500});
    EXPECT_TRUE(person.alerts.empty());
    Operations().DisturbNothing();
    Object()->lastErrorTime = 0;
    EXPECT_EQ(host.Suites().Users("Glossa Host Init Suite"), 0u);
  }
  Operations().Refuse("VX Unicode String Suite/CreateFromText", ResultCode::kCannot);
  EXPECT_EQ(Shown(12), "");
  EXPECT_EQ(Shown(12), "The operation failed (12).");
}

}  // namespace
