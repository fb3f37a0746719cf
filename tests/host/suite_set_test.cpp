#include "host/suite_set.h"

#include "tests/host/test_plugin.h"

namespace {

class SuiteSetTest : public FrameworkTest {
 protected:
  SuiteSetTest() { basicSuite = host.BasicSuite(); }
  ~SuiteSetTest() override {
    suiteAcquireCount = 0;
    heldSuite<VXNotifierSuite> = heldSuite<VXContextSuite> = heldSuite<KDMBasicSuite> = nullptr;
    heldSuite<QPBlocksSuite> = heldSuite<VXUnicodeStringSuite> = nullptr;
    heldSuite<VXUserSuite> = heldSuite<VXUserInterfaceMainSuite> = nullptr;
  }
  void TearDown() override {}  // suites whose release failed stay held
};

TEST_F(SuiteSetTest, SetsShareTheSuitesAndTheLastOneReleasesThemInOrder) {
  Operations().StartLog();
  {
    SuiteSet first;
    EXPECT_EQ(first.Error(), ResultCode::kSuccess);
    {
      SuiteSet second;
      EXPECT_EQ(suiteAcquireCount, 2);
    }
    EXPECT_EQ(suiteAcquireCount, 1);
    EXPECT_NE(Suite<KDMBasicSuite>(), nullptr);
  }
  std::vector<std::string> expected;
  for (const std::string verb : {"acquire/", "release/"})
    for (const char* name :
         {"QP Access Suite", "QP Plug-ins Suite", "VX Notifier Suite", "VX Context Suite",
          "KDM Basic Suite", "QP Blocks Suite", "VX Unicode String Suite", "VX User Suite",
          "VX User Interface Main Suite"})
      expected.push_back(verb + name);
  EXPECT_EQ(Operations().Log(), expected);
  EXPECT_EQ(Suite<KDMBasicSuite>(), nullptr);
}

TEST_F(SuiteSetTest, AFailedReleaseEndsTheWalkAndClearsOnlyItsOwnPointer) {
  {
    SuiteSet set;
    Operations().Refuse("release/QP Plug-ins Suite", ResultCode::kCannot);
  }
  EXPECT_EQ(Suite<QPAccessSuite>(), nullptr);
  EXPECT_EQ(Suite<QPPluginsSuite>(), nullptr);
  EXPECT_NE(Suite<VXNotifierSuite>(), nullptr);
  EXPECT_EQ(host.Suites().Users("VX Notifier Suite"), 1u);
  EXPECT_EQ(host.Suites().Users("VX Unicode String Suite"), 1u);
}

TEST_F(SuiteSetTest, OptionalSuitesAreTriedAgainWithEveryMessage) {
  host.Suites().SetAbsent("VX User Suite");
  ASSERT_EQ(module.StartUp(), ResultCode::kSuccess);
  EXPECT_EQ(Suite<VXUserSuite>(), nullptr);

  host.Suites().SetAbsent("VX User Suite", false);
  ASSERT_EQ(module.Send("VX Menu", "VX Go"), ResultCode::kSuccess);
  EXPECT_NE(Suite<VXUserSuite>(), nullptr);
  Operations().Refuse("release/VX User Suite", ResultCode::kCannot);
  EXPECT_EQ(module.ShutDown(), ResultCode::kSuccess);
  EXPECT_EQ(host.Suites().Users("VX User Interface Main Suite"), 1u) << "the walk ended before it";
}

TEST_F(SuiteSetTest, ASuiteWithoutATableCountsAsRefused) {
  static int releases;
  releases = 0;
  QPBasicSuite withoutTables = {
      [](const char*, int32_t, const void**) { return ResultCode::kSuccess; },
      [](const char*, int32_t) { return ++releases, ResultCode::kSuccess; },
  };
  for (QPBasicSuite* suite : {static_cast<QPBasicSuite*>(nullptr), &withoutTables}) {
    basicSuite = suite;
    const SuiteSet set;
    EXPECT_EQ(set.Error(), ResultCode::kCannot);
    EXPECT_EQ(suiteAcquireCount, 0) << "a set that failed is not counted";
    EXPECT_EQ(ReleaseSuite(ImportOf<KDMBasicSuite>()),
              suite ? ResultCode::kSuccess : ResultCode::kCannot);
    suiteAcquireCount = 1;
  }
  EXPECT_EQ(releases, 2) << "of the suite without a table, and of the one released here";
  EXPECT_EQ(module.StartUp(), ResultCode::kSuccess) << "each message brings its basic suite";
}

}  // namespace
