#include "tests/support/built_module.h"
#include "tests/support/campaign.h"
#include "tests/support/known_messages.h"

// Any message may come at any time. What a message makes the plug-in ask of its host follows from
// the message and from whether the plug-in holds its suites; the answer is always success.

namespace {

using campaign::Once;
using campaign::Pick;
using campaign::Random;
using Log = std::vector<std::string>;

constexpr const char* kNotifierTypes[] = {"VX Application Started Notifier", "VX Other", ""};

/// The text, or one that differs from it a little.
std::string Near(Random& random, const std::string& text) {
  const std::string damaged = campaign::Damaged(random, text);
  return Once(random, 2) ? text : damaged.substr(0, damaged.find('\0'));
}

/// One of the messages that begin or end something; says whether the plug-in then holds suites.
bool Live(Random& random, standin::Module& module) {
  const bool exists = module.Globals();
  if (!exists || Once(random, 4)) {  // a host starts a plug-in once
    EXPECT_EQ(exists ? module.ShutDown() : module.StartUp(), ResultCode::kSuccess);
    return !exists;
  }
  const bool unloads = Once(random, 2);
  EXPECT_EQ(module.Send("QP Access", unloads ? "Unload" : "Reload"), ResultCode::kSuccess);
  return !unloads;
}

void SendAny(Random& random, BuiltModule& built, bool holdsSuites) {
  const KnownMessage& known = Pick(random, kKnownMessages);
  const std::string caller = Near(random, Once(random, 8) ? "VX Notifier" : known.caller);
  const std::string selector =
      Near(random, Once(random, 4) ? Pick(random, kKnownMessages).selector : known.selector);
  const std::string message = caller + " / " + selector;
  if (message == "QP Access / Unload") return;
  const bool notifies = caller == "VX Notifier";

  built.host.Operations().StartLog();
  EXPECT_EQ(notifies ? built.module.Notify(Pick(random, kNotifierTypes), selector.c_str())
                     : built.module.Send(caller.c_str(), selector.c_str()),
            ResultCode::kSuccess)
      << message;
  Log expected;
  if (holdsSuites && notifies)
    expected = {"VX Context Suite/PushAppContext", "VX Context Suite/PopAppContext"};
  if (holdsSuites && message == "QP Interface / About")
    expected = {"KDM Basic Suite/GetListString", "KDM Basic Suite/GetListString",
                "KDM Basic Suite/ShowAboutBox"};
  EXPECT_EQ(built.host.Operations().Log(), expected) << message;
}

TEST(RandomMessages, AreAnsweredAndAskNothingUnexpectedOfTheHost) {
  BuiltModule built;
  bool holdsSuites = true;
  campaign::ForEachSeed(campaign::Count(4000 / campaign::Step(1), 200000), [&](Random& random) {
    for (int i = 0; i < 50; ++i) {
      if (Once(random, 10)) {
        holdsSuites = Live(random, built.module);
      } else {
        SendAny(random, built, holdsSuites);
      }
    }
  });
  EXPECT_TRUE(built.person.alerts.empty());
}

}  // namespace
