#include <string_view>

#include "campaign/built_module.h"
#include "campaign/campaign.h"
#include "host/known_messages.h"

// Any message may come at any time. What a message makes the plug-in ask of its host follows from
// the message and from whether the plug-in holds its suites; the answer is always success.

namespace {

using campaign::Below;
using campaign::Once;
using campaign::Pick;
using campaign::Random;
using Log = std::vector<std::string>;

constexpr const char* kNotifierTypes[] = {"VX Application Started Notifier", "VX Other", ""};

/// The text, or one that differs from it a little.
std::string Near(Random& random, const std::string& text) {
  return Once(random, 2) ? text : std::string(campaign::Damaged(random, text).c_str());
}

class RandomMessages : public testing::Test {
 protected:
  bool HoldsSuites() const { return built.module.Globals() && !isUnloaded; }

  /// One of the messages that begin or end something, and what the plug-in then is.
  void Live(Random& random) {
    auto& module = built.module;
    const bool exists = module.Globals();
    switch (Below(random, 4)) {
      case 0:  // a host starts a plug-in once
        EXPECT_EQ(exists ? ResultCode::kSuccess : module.StartUp(), ResultCode::kSuccess);
        isUnloaded = isUnloaded && exists;
        break;
      case 1:
        EXPECT_EQ(module.ShutDown(), ResultCode::kSuccess);
        isUnloaded = false;
        break;
      default:
        isUnloaded = exists && Once(random, 2);
        EXPECT_EQ(module.Send("QP Access", isUnloaded ? "Unload" : "Reload"), ResultCode::kSuccess);
    }
  }

  void SendAny(Random& random) {
    const KnownMessage& known = Pick(random, kKnownMessages);
    const bool notifies = Once(random, 8);
    const std::string caller = Near(random, notifies ? "VX Notifier" : known.caller);
    const std::string selector =
        Near(random, Once(random, 4) ? Pick(random, kKnownMessages).selector : known.selector);
    const std::string message = caller + " / " + selector;
    if (message == "QP Access / Unload") return;

    auto& operations = built.host.Operations();
    operations.StartLog();
    const ResultCode code =
        caller == "VX Notifier"
            ? built.module.Notify(Pick(random, kNotifierTypes), selector.c_str())
            : built.module.Send(caller.c_str(), selector.c_str());
    EXPECT_EQ(code, ResultCode::kSuccess) << message;
    Log expected;
    if (HoldsSuites() && caller == "VX Notifier")
      expected = {"VX Context Suite/PushAppContext", "VX Context Suite/PopAppContext"};
    if (HoldsSuites() && message == "QP Interface / About")
      expected = {"KDM Basic Suite/GetListString", "KDM Basic Suite/GetListString",
                  "KDM Basic Suite/ShowAboutBox"};
    EXPECT_EQ(operations.Log(), expected) << message;
  }

  BuiltModule built;
  bool isUnloaded = false;
};

TEST_F(RandomMessages, AreAnsweredAndAskNothingUnexpectedOfTheHost) {
  campaign::ForEachSeed(campaign::Count(4000 / campaign::Step(1), 200000), [&](Random& random) {
    for (int i = 0; i < 50; ++i) Once(random, 10) ? Live(random) : SendAny(random);
  });
  EXPECT_TRUE(built.person.alerts.empty());
}

}  // namespace
