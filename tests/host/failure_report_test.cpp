#include "host/failure_report.h"

#include "tests/host/test_plugin.h"

namespace {

class FailureReportTest : public FrameworkTest {
 protected:
  FailureReportTest() { EXPECT_EQ(module.StartUp(), ResultCode::kSuccess); }

  /// A message fails; how many alerts there were since the test began.
  size_t Fail(int32_t code) {
    plan.menuGo = [code] { return ResultCode{code}; };
    EXPECT_EQ(module.Send("VX Menu", "VX Go"), ResultCode{code});
    return person.alerts.size();
  }
};

TEST_F(FailureReportTest, TheSameCodeIsShownOncePerFiveSeconds) {
  EXPECT_EQ(Fail(12), 1u);
  Object()->lastErrorTime -= 3;
  EXPECT_EQ(Fail(12), 1u);
  Object()->lastErrorTime -= 2;
  EXPECT_EQ(Fail(12), 2u);
  Object()->suppressRepeatedErrors = false;
  EXPECT_EQ(Fail(12), 3u);
}

}  // namespace
