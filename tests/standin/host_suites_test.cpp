#include <gtest/gtest.h>

#include <cmath>
#include <exception>
#include <new>
#include <stdexcept>

#include "platform/qpbasic/ledger.h"
#include "platform/standin/held_suite.h"
#include "platform/standin/host.h"
#include "platform/standin/host_codes.h"
#include "tests/standin/temporary_folder.h"

namespace {

using standin::HeldSuite;
using standin::Host;

constexpr ResultCode kDone = ResultCode::kSuccess;

/// A suite as a plug-in would publish it.
struct Greeting {
  static constexpr const char* kName = "Greeting Suite";
  static constexpr int32_t kVersion = 5;
  int (*Greet)();
};

class HostSuitesTest : public testing::Test {
 protected:
  ~HostSuitesTest() override { qpbasic::Ledger::Get().ForgetFaults(); }

  TemporaryFolder resources;
  standin::RecordingUserInterface screen;
  Host host{screen, resources.path};
  const PluginRef plugin = host.AddPlugin("plugin.so");
};

TEST_F(HostSuitesTest, SuitesAreHandedOutByNameAndVersionAndCounted) {
  QPBasicSuite* const basic = host.BasicSuite();
  const void* suite = &host;
  EXPECT_EQ(basic->Acquire("VX Real Math Suit", 1002, &suite), standin::kSuiteNotFound);
  EXPECT_EQ(basic->Acquire("VX Real Math Suite", 1001, &suite), standin::kSuiteVersion);
  EXPECT_EQ(suite, &host) << "a failed acquisition writes nothing";
  EXPECT_EQ(basic->Release("VX Real Math Suite", 1002), standin::kSuiteNotHeld);

  ASSERT_EQ(basic->Acquire("VX Real Math Suite", 1002, &suite), kDone);
  EXPECT_EQ(static_cast<const VXRealMathSuite*>(suite)->Divide(1, 3), 1.0F / 3.0F);
  ASSERT_EQ(basic->Acquire("VX Real Math Suite", 1002, &suite), kDone);
  EXPECT_EQ(basic->Release("VX Real Math Suite", 1002), kDone);
  EXPECT_EQ(host.Leftovers(),
            std::vector<std::string>{"suite \"VX Real Math Suite\" 1002 has 1 users"});
  EXPECT_EQ(basic->Release("VX Real Math Suite", 1002), kDone);
  EXPECT_TRUE(host.Leftovers().empty());

  host.Suites().SetAbsent("VX Real Math Suite");
  EXPECT_EQ(basic->Acquire("VX Real Math Suite", 1002, &suite), standin::kSuiteNotFound);
  EXPECT_THROW(host.Suites().SetAbsent("No Such Suite"), std::invalid_argument);
}

TEST_F(HostSuitesTest, EveryOperationRefusesAndThrowsWhenToldTo) {
  standin::OperationBook& operations = host.Operations();
  HeldSuite<QPPluginsSuite> plugins(host);
  ASSERT_TRUE(plugins);
  operations.StartLog();
  operations.Refuse("QP Plug-ins Suite/SetPluginName", ResultCode{-43}, 2);
  EXPECT_EQ(plugins->SetPluginName(plugin, "first"), kDone);
  EXPECT_EQ(plugins->SetPluginName(plugin, "second"), ResultCode{-43});
  EXPECT_EQ(plugin->name, "first");
  EXPECT_EQ(plugins->SetPluginName(plugin, "third"), kDone);

  operations.Throw("QP Plug-ins Suite/SetPluginName", std::make_exception_ptr(std::bad_alloc()));
  EXPECT_THROW(static_cast<void>(plugins->SetPluginName(plugin, "fourth")), std::bad_alloc);
  EXPECT_EQ(plugin->name, "third");

  operations.Refuse("acquire/VX Context Suite", ResultCode{7}, 1, false);
  EXPECT_EQ(HeldSuite<VXContextSuite>(host).Code(), ResultCode{7});
  EXPECT_EQ(HeldSuite<VXContextSuite>(host).Code(), ResultCode{7});
  operations.DisturbNothing();
  EXPECT_TRUE(HeldSuite<VXContextSuite>(host));

  EXPECT_EQ(operations.Calls("QP Plug-ins Suite/SetPluginName"), 4U);
  EXPECT_EQ(operations.Disturbed(), 4U);
  EXPECT_EQ(operations.Log().back(), "release/VX Context Suite");
  EXPECT_THROW(operations.Refuse("QP Plug-ins Suite/Typo", kDone), std::invalid_argument);
}

TEST_F(HostSuitesTest, OperationsWithoutCodeRefuseWithNothing) {
  for (const std::string& name : host.Operations().Names())
    if (!name.starts_with("acquire/") && !name.starts_with("release/"))
      host.Operations().Refuse(name, ResultCode{1});
  EXPECT_TRUE(std::isnan(HeldSuite<VXRealMathSuite>(host)->Multiply(2, 3)));
  EXPECT_EQ(HeldSuite<GlossaHostInitSuite>(host)->GetHostModule(), nullptr);
}

TEST_F(HostSuitesTest, HandlesAreFollowedOnlyWhileTheyAreValid) {
  HeldSuite<QPAccessSuite> access(host);
  AccessHandle held = nullptr;
  EXPECT_EQ(access->AcquirePlugin(host.HostModule(), &held), standin::kUnknownPlugin);
  ASSERT_EQ(access->AcquirePlugin(plugin, &held), kDone);
  EXPECT_TRUE(host.IsInUse(plugin));
  EXPECT_EQ(access->ReleasePlugin(held), kDone);
  EXPECT_EQ(access->ReleasePlugin(held), standin::kUnknownHandle);
  EXPECT_FALSE(host.IsInUse(plugin));

  HeldSuite<VXContextSuite> contexts(host);
  ContextHandle outer = nullptr;
  ContextHandle inner = nullptr;
  ASSERT_EQ(contexts->PushAppContext(plugin, &outer), kDone);
  ASSERT_EQ(contexts->PushAppContext(plugin, &inner), kDone);
  EXPECT_EQ(contexts->PopAppContext(outer), standin::kContextOrder);
  EXPECT_EQ(contexts->PopAppContext(inner), kDone);
  EXPECT_EQ(contexts->PopAppContext(outer), kDone);
  EXPECT_EQ(contexts->PopAppContext(nullptr), standin::kUnknownHandle);

  HeldSuite<VXUnicodeStringSuite> strings(host);
  HeldSuite<VXUserSuite> user(host);
  StringHandle string = nullptr;
  EXPECT_EQ(strings->CreateFromText(&string, "text", 4, 3), standin::kUnknownEncoding);
  ASSERT_EQ(strings->CreateFromText(&string, "an alert, cut", 8, 0), kDone);
  EXPECT_EQ(user->ShowErrorAlert(&string), kDone);
  StringHandle copy = string;
  EXPECT_EQ(strings->Dispose(&string), kDone);
  EXPECT_EQ(string, nullptr);
  EXPECT_EQ(strings->Dispose(&copy), standin::kUnknownHandle);
  EXPECT_EQ(user->ShowErrorAlert(&copy), standin::kUnknownHandle);
  EXPECT_EQ(screen.alerts, std::vector<std::string>{"an alert"});
}

TEST_F(HostSuitesTest, LeftoversNameEverythingThatWasNotGivenBack) {
  {
    HeldSuite<QPPluginsSuite> plugins(host);
    HeldSuite<QPAccessSuite> access(host);
    HeldSuite<VXContextSuite> contexts(host);
    HeldSuite<VXUnicodeStringSuite> strings(host);
    HeldSuite<QPBlocksSuite> blocks(host);
    AccessHandle accessHandle;
    ContextHandle context;
    StringHandle string;
    void* block;
    ASSERT_EQ(plugins->SetPluginName(plugin, "Tiles"), kDone);
    ASSERT_EQ(access->AcquirePlugin(plugin, &accessHandle), kDone);
    ASSERT_EQ(contexts->PushAppContext(plugin, &context), kDone);
    ASSERT_EQ(strings->CreateFromText(&string, "hello", 5, 0), kDone);
    ASSERT_EQ(blocks->AllocateBlock(8, "table", &block), kDone);
    const std::vector<std::string> leftovers = host.Leftovers();
    ASSERT_EQ(leftovers.size(), 5U + 4U);
    EXPECT_EQ(leftovers[5], "access to Tiles is held");
    EXPECT_EQ(leftovers[6], "context of Tiles is open");
    EXPECT_EQ(leftovers[7], "string \"hello\" is not disposed of");
    EXPECT_NE(leftovers[8].find("(table)"), std::string::npos) << leftovers[8];
    EXPECT_EQ(blocks->FreeBlock(block), kDone);
    EXPECT_EQ(blocks->FreeBlock(block), qpbasic::kUnknownBlock);
  }
  EXPECT_TRUE(host.Leftovers().back().starts_with("freed twice: "));
}

TEST_F(HostSuitesTest, PluginsPublishSuitesForOthers) {
  const Greeting greeting{[] { return 42; }};
  SuiteHandle handle = nullptr;
  HeldSuite<QPSuitesSuite> registry(host);
  ASSERT_EQ(registry->AddSuite(nullptr, plugin, Greeting::kName, 5, 1, &greeting, &handle), kDone);
  EXPECT_EQ(registry->AddSuite(nullptr, plugin, Greeting::kName, 5, 1, &greeting, &handle),
            standin::kSuiteTaken);
  EXPECT_EQ(host.Suites().Find<Greeting>(), &greeting);
  {
    HeldSuite<Greeting> held(host);
    ASSERT_TRUE(held);
    EXPECT_EQ(held->Greet(), 42);
    EXPECT_TRUE(host.IsInUse(plugin));
  }
  host.SetAway(plugin, true);
  EXPECT_EQ(HeldSuite<Greeting>(host).Code(), standin::kNotLoaded);
  host.SetAway(plugin, false);
  EXPECT_TRUE(HeldSuite<Greeting>(host));
  host.ForgetRegistrations(plugin);
  EXPECT_EQ(HeldSuite<Greeting>(host).Code(), standin::kSuiteNotFound);
}

TEST_F(HostSuitesTest, ListStringsComeFromTheOwnersFilesAndFitTheBuffer) {
  resources.Write("strings/5.txt", "1\tplug-in\n2\tgr\xC3\xBC\xC3\x9F\n");
  resources.Write("host/5.txt", "1\thost\n");
  resources.Write("strings/6.txt", "1\tgood\nbad\n");
  HeldSuite<KDMBasicSuite> lists(host);
  char text[8] = "before";
  const auto size = static_cast<int32_t>(sizeof text);
  EXPECT_EQ(lists->GetListString(plugin, 5, 3, text, size), standin::kNoListEntry);
  EXPECT_EQ(lists->GetListString(plugin, 7, 1, text, size), standin::kNoListEntry);
  EXPECT_EQ(lists->GetListString(plugin, 6, 1, text, size), standin::kDamagedList);
  EXPECT_EQ(lists->GetListString(nullptr, 5, 1, text, size), standin::kUnknownPlugin);
  EXPECT_EQ(lists->GetListString(plugin, 5, 1, text, 0), standin::kBadArgument);
  EXPECT_STREQ(text, "before");
  ASSERT_EQ(host.ResourceProblems().size(), 1U);
  EXPECT_TRUE(host.ResourceProblems()[0].ends_with("6.txt:2: no tab between index and text"));

  EXPECT_EQ(lists->GetListString(plugin, 5, 1, text, size), kDone);
  EXPECT_STREQ(text, "plug-in") << "seven characters and the terminator just fit";
  EXPECT_EQ(lists->GetListString(plugin, 5, 1, text, 5), kDone);
  EXPECT_STREQ(text, "plug");
  EXPECT_EQ(lists->GetListString(plugin, 5, 2, text, 6), kDone);
  EXPECT_STREQ(text, "gr\xC3\xBC") << "no half character remains";
  EXPECT_EQ(lists->GetListString(host.HostModule(), 5, 1, text, size), kDone);
  EXPECT_STREQ(text, "host");
  EXPECT_EQ(lists->ShowAboutBox(plugin, "one", "two"), kDone);
  ASSERT_EQ(screen.aboutBoxes.size(), 1U);
  EXPECT_EQ(screen.aboutBoxes[0], (std::pair<std::string, std::string>("one", "two")));
}

}  // namespace
