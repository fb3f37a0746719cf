#include <stdexcept>

#include "platform/standin/held_suite.h"
#include "platform/standin/host_codes.h"
#include "standin/host_test.h"

namespace {

using standin::HeldSuite;

constexpr ResultCode kDone = ResultCode::kSuccess;

/// A suite as a plug-in would publish it.
struct Greeting {
  static constexpr const char* kName = "Greeting Suite";
  static constexpr int32_t kVersion = 5;
};

class HostSuitesTest : public HostTest {};

TEST_F(HostSuitesTest, SuitesAreHandedOutByNameAndVersionAndCounted) {
  QPBasicSuite* const basic = host.BasicSuite();
  const char* const name = VXRealMathSuite::kName;
  const void* suite = &host;
  EXPECT_EQ(basic->Acquire("VX Real Math Suit", 1002, &suite), standin::kSuiteNotFound);
  EXPECT_EQ(basic->Acquire(name, 1001, &suite), standin::kSuiteVersion);
  EXPECT_EQ(suite, &host) << "a failed acquisition writes nothing";
  EXPECT_EQ(basic->Release(name, 1002), standin::kSuiteNotHeld);
  ASSERT_EQ(basic->Acquire(name, 1002, &suite), kDone);
  EXPECT_EQ(static_cast<const VXRealMathSuite*>(suite)->Divide(1, 3), 1.0F / 3.0F);
  ASSERT_EQ(basic->Acquire(name, 1002, &suite), kDone);
  EXPECT_EQ(basic->Release(name, 1002), kDone);
  EXPECT_EQ(host.Leftovers(), Lines{"suite \"VX Real Math Suite\" 1002 has 1 users"});
  EXPECT_EQ(basic->Release(name, 1002), kDone);
  EXPECT_THROW(host.Suites().SetAbsent("No Such Suite"), std::invalid_argument);
  EXPECT_THROW(host.Operations().Refuse("VX User Suite/Typo", kDone), std::invalid_argument);
}

TEST_F(HostSuitesTest, WhatIsNotGivenBackIsNamedAndNothingIsGivenBackTwice) {
  const HeldSuite<QPAccessSuite> access(host);
  const HeldSuite<VXContextSuite> contexts(host);
  const HeldSuite<VXUnicodeStringSuite> strings(host);
  const HeldSuite<VXUserSuite> user(host);
  AccessHandle held;
  ContextHandle outer, inner;
  StringHandle string = nullptr;
  EXPECT_EQ(access->AcquirePlugin(host.HostModule(), &held), standin::kUnknownPlugin);
  EXPECT_EQ(strings->CreateFromText(&string, "text", 4, 3), standin::kUnknownEncoding);
  ASSERT_EQ(access->AcquirePlugin(plugin, &held), kDone);
  ASSERT_EQ(contexts->PushAppContext(plugin, &outer), kDone);
  ASSERT_EQ(contexts->PushAppContext(plugin, &inner), kDone);
  ASSERT_EQ(strings->CreateFromText(&string, "hello, cut", 5, 0), kDone);
  EXPECT_EQ(user->ShowErrorAlert(&string), kDone);
  EXPECT_EQ(screen.alerts, Lines{"hello"});
  EXPECT_TRUE(host.IsInUse(plugin));
  const Lines left = host.Leftovers();
  ASSERT_EQ(left.size(), 8U);
  EXPECT_EQ(left[4], "access to plugin.so is held");
  EXPECT_EQ(left[6], "context of plugin.so is open");
  EXPECT_EQ(left[7], "string \"hello\" is not disposed of");

  EXPECT_EQ(access->ReleasePlugin(held), kDone);
  EXPECT_EQ(access->ReleasePlugin(held), standin::kUnknownHandle);
  EXPECT_FALSE(host.IsInUse(plugin));
  EXPECT_EQ(contexts->PopAppContext(outer), standin::kContextOrder);
  EXPECT_EQ(contexts->PopAppContext(inner), kDone);
  EXPECT_EQ(contexts->PopAppContext(outer), kDone);
  EXPECT_EQ(contexts->PopAppContext(nullptr), standin::kUnknownHandle);
  StringHandle copy = string;
  EXPECT_EQ(strings->Dispose(&string), kDone);
  EXPECT_EQ(string, nullptr);
  EXPECT_EQ(strings->Dispose(&copy), standin::kUnknownHandle);
  EXPECT_EQ(user->ShowErrorAlert(&copy), standin::kUnknownHandle);
  EXPECT_EQ(host.Leftovers().size(), 4U) << "the suites";
}

TEST_F(HostSuitesTest, PluginsPublishSuitesForOthers) {
  const Greeting greeting;
  SuiteHandle handle = nullptr;
  HeldSuite<QPSuitesSuite> registry(host);
  ASSERT_EQ(registry->AddSuite(nullptr, plugin, Greeting::kName, 5, 1, &greeting, &handle), kDone);
  EXPECT_EQ(registry->AddSuite(nullptr, plugin, Greeting::kName, 5, 1, &greeting, &handle),
            standin::kSuiteTaken);
  {
    const HeldSuite<Greeting> held(host);
    EXPECT_EQ(held.operator->(), &greeting);
    EXPECT_TRUE(host.IsInUse(plugin));
  }
  host.SetAway(plugin, true);
  EXPECT_EQ(HeldSuite<Greeting>(host).Code(), standin::kNotLoaded);
  host.SetAway(plugin, false);
  host.ForgetRegistrations(plugin);
  EXPECT_EQ(HeldSuite<Greeting>(host).Code(), standin::kSuiteNotFound);
}

TEST_F(HostSuitesTest, ListStringsComeFromTheOwnersFilesAndFitTheBuffer) {
  resources.Write("strings/5.txt", "1\tplug-in\n2\tgr\xC3\xBC\xC3\x9F\n");
  resources.Write("host/5.txt", "1\thost\n");
  resources.Write("strings/6.txt", "1\tgood\nbad\n");
  const struct {
    ModuleRef owner;
    int32_t list, index;
    size_t size;
    ResultCode code;
    const char* text;
  } cases[] = {
      {plugin, 5, 3, 8, standin::kNoListEntry, "before"},
      {plugin, 6, 1, 8, standin::kDamagedList, "before"},
      {nullptr, 5, 1, 8, standin::kUnknownPlugin, "before"},
      {plugin, 5, 1, 0, standin::kBadArgument, "before"},
      {plugin, 5, 1, 8, kDone, "plug-in"},     // with its terminator it just fits
      {plugin, 5, 2, 6, kDone, "gr\xC3\xBC"},  // no half character remains
      {host.HostModule(), 5, 1, 8, kDone, "host"},
  };
  const HeldSuite<KDMBasicSuite> lists(host);
  for (const auto& [owner, list, index, size, code, expected] : cases) {
    char text[8] = "before";
    EXPECT_EQ(lists->GetListString(owner, list, index, text, size), code);
    EXPECT_STREQ(text, expected);
  }
  ASSERT_EQ(host.ResourceProblems().size(), 1U);
  EXPECT_TRUE(host.ResourceProblems()[0].ends_with("6.txt:2: no tab between index and text"));
}

}  // namespace
