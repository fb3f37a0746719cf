#include "testkit/known_messages.h"
#include "tests/host/test_plugin.h"

namespace {

class DispatchTest : public FrameworkTest {
 protected:
  DispatchTest() { EXPECT_EQ(module.StartUp(), ResultCode::kSuccess); }
};

/// Records the name of the last operation called.
class EchoPlugin : public Plugin {
 public:
  EchoPlugin() : Plugin(nullptr) {}

#define ECHO(caller, selector, operation)         \
  ResultCode operation(PluginMessage*) override { \
    called = #operation;                          \
    return ResultCode::kSuccess;                  \
  }
  FOR_EACH_KNOWN_MESSAGE(ECHO)
#undef ECHO
  bool OnPurge() override {
    called = "OnPurge";
    return false;
  }

  std::string called;
};

TEST(Dispatch, EachMessageCallsItsOperationAndOthersAreNotHandled) {
  EchoPlugin plugin;
  PluginMessage message{};
  std::vector<KnownMessage> messages(std::begin(kKnownMessages), std::end(kKnownMessages));
  for (const auto& [caller, selector] : {std::pair("VX Menu", "vx go"),
                                         {"VX Menu", "VX Go "},
                                         {"VX Men", "VX Go"},
                                         {"QP Access", "Reload"},
                                         {"", ""}})
    messages.push_back({caller, selector, ""});
  for (const auto& [caller, selector, operation] : messages) {
    SCOPED_TRACE(std::string(caller) + " / " + selector);
    plugin.called.clear();
    EXPECT_EQ(plugin.HandleMessage(caller, selector, &message),
              *operation ? ResultCode::kSuccess : ResultCode::kNotHandled);
    EXPECT_EQ(plugin.called, operation);
  }
  EXPECT_EQ(plugin.HandleMessage("QP Interface", "Startup", &message), ResultCode::kSuccess);
  EXPECT_EQ(plugin.HandleMessage(nullptr, nullptr, &message), ResultCode::kNotHandled);
  NotifierMessage notifier{};
  EXPECT_EQ(plugin.HandleMessage("VX Notifier", "VX Notify", &notifier), ResultCode::kSuccess)
      << "without the context suite";
}

TEST_F(DispatchTest, ScriptMessagesAndPurgeAreHandledWithoutAnAlert) {
  void* const object = module.Globals();
  EXPECT_EQ(module.Send("QP Interface", "Startup "), ResultCode::kSuccess);
  EXPECT_EQ(module.Globals(), object);
  EXPECT_EQ(module.Send("VX Script Message Caller", "anything"), ResultCode::kSuccess);
  EXPECT_EQ(handled.back(), "anything");
  EXPECT_EQ(module.Send(messages::kPurge), ResultCode::kSuccess);
  plan.purges = true;
  EXPECT_EQ(module.Send(messages::kPurge), ResultCode::kPurged);
  EXPECT_TRUE(user.alerts.empty());
}

TEST_F(DispatchTest, RepeatedFailureIsShownAgainIfNotSuppressed) {
  plan.menuGo = [] { return ResultCode::kParameter; };
  Object()->suppressRepeatedErrors = false;
  for (const size_t alerts : {1u, 2u}) {
    EXPECT_EQ(module.Send(messages::kMenuGo), ResultCode::kParameter);
    EXPECT_EQ(user.alerts.size(), alerts);
  }
}

TEST_F(DispatchTest, OnApplicationStartedIsCalledOnlyForTheStartedNotifier) {
  handled.clear();
  EXPECT_EQ(module.Notify(messages::kStartedNotifierType), ResultCode::kSuccess);
  EXPECT_EQ(handled, (std::vector<std::string>{"started", "notified"}));

  handled.clear();
  plan.applicationStarted = ResultCode::kParameter;
  EXPECT_EQ(module.Notify(messages::kStartedNotifierType), ResultCode::kParameter);
  plan.applicationStarted = ResultCode::kNotHandled;
  EXPECT_EQ(module.Notify(messages::kStartedNotifierType, "VX Other"), ResultCode::kSuccess);
  EXPECT_EQ(module.Notify(messages::kStartedNotifierType), ResultCode::kSuccess);
  EXPECT_EQ(handled, (std::vector<std::string>{"started", "started", "started", "notified"}));

  handled.clear();
  EXPECT_EQ(module.Notify(nullptr, "VX Other"), ResultCode::kSuccess);
  EXPECT_EQ(module.Notify("VX Other Notifier"), ResultCode::kSuccess);
  EXPECT_EQ(module.Notify("VX Other Notifier", "VX Other"), ResultCode::kSuccess);
  EXPECT_EQ(handled, std::vector<std::string>{"notified"});
}

}  // namespace
