#include "host/suite_set.h"

#include "tests/host/test_plugin.h"

namespace {

class SuiteSetTest : public FrameworkTest {
 protected:
  SuiteSetTest() { basicSuite = host.BasicSuite(); }
  ~SuiteSetTest() override {
    suiteAcquireCount = 0;
    heldSuite<QPPluginsSuite> = heldSuite<VXNotifierSuite> = heldSuite<VXContextSuite> =
        heldSuite<KDMBasicSuite> = nullptr;
    heldSuite<QPBlocksSuite> = heldSuite<VXUnicodeStringSuite> = nullptr;
    heldSuite<VXUserSuite> = heldSuite<VXUserInterfaceMainSuite> = nullptr;
  }
  void TearDown() override {}  // some tests make a release fail, which leaves suites held
};

TEST_F(SuiteSetTest, SuitesStayHeldUntilTheLastSetIsDestroyed) {
  {
    SuiteSet first;
    EXPECT_EQ(first.Error(), ResultCode::kSuccess);
    {
      SuiteSet second;
      EXPECT_EQ(suiteAcquireCount, 2);
    }
    EXPECT_EQ(suiteAcquireCount, 1);
    EXPECT_NE(Suite<KDMBasicSuite>(), nullptr);
    EXPECT_NE(Suite<VXUserSuite>(), nullptr) << "optional";
  }
  EXPECT_EQ(Suite<KDMBasicSuite>(), nullptr);
  EXPECT_EQ(Suite<VXUserSuite>(), nullptr);
}

TEST_F(SuiteSetTest, ReleaseStopsAtTheFirstFailure) {
  {
    const SuiteSet set;
    basicSuite = nullptr;
  }
  EXPECT_EQ(Suite<QPAccessSuite>(), nullptr);
  EXPECT_NE(Suite<QPPluginsSuite>(), nullptr);
}

TEST_F(SuiteSetTest, MissingOptionalSuiteUsesUpOneReleaseOfTheOptionalList) {
  host.Suites().SetAbsent("VX User Suite");
  { const SuiteSet set; }
  EXPECT_EQ(host.Suites().Users("VX User Interface Main Suite"), 1u);
}

TEST_F(SuiteSetTest, OptionalSuiteThatAppearsIsAcquiredByTheNextMessage) {
  host.Suites().SetAbsent("VX User Suite");
  ASSERT_EQ(module.StartUp(), ResultCode::kSuccess);
  EXPECT_EQ(Suite<VXUserSuite>(), nullptr);

  host.Suites().SetAbsent("VX User Suite", false);
  ASSERT_EQ(module.Send(messages::kMenuGo), ResultCode::kSuccess);
  EXPECT_NE(Suite<VXUserSuite>(), nullptr);
  Operations().Refuse("release/VX User Suite", ResultCode::kCannot);
  EXPECT_EQ(module.ShutDown(), ResultCode::kSuccess);
  EXPECT_EQ(host.Suites().Users("VX User Interface Main Suite"), 1u)
      << "a failed release must end the walk";
}

}  // namespace
