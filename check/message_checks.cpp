#include <cstring>
#include <string_view>

#include "check/basic_suite.h"
#include "check/checked_module.h"
#include "testkit/known_messages.h"

namespace check {
namespace {

using standin::ListOwner;

/// Expects that each message, except those of the lifecycle, succeeds without a call of the host.
void ExpectSilence(CheckedModule& checked, bool withAbout) {
  std::vector<MessageName> names = {
      {"VX Menu", "vx go"},      {"VX Menu", "VX Go "},
      {"VX Men", "VX Go"},       {"QP Interface", "Startup "},
      {"QP Interface", "about"}, {"", ""},
      {nullptr, nullptr},        {"QP Interface", nullptr},
      {nullptr, "About"},        {messages::kScriptCaller, "anything"},
  };
  for (const auto& [caller, selector, operation] : kKnownMessages)
    if (operation != std::string_view("OnUnload") &&
        (withAbout || operation != std::string_view("OnAbout")))
      names.push_back({caller, selector});
  void* const globals = checked.module.Globals();
  for (const MessageName& name : names)
    checked.ExpectCalls("silence", {}, [&] { return checked.module.Send(name); });
  Expect("globals are kept", checked.module.Globals() == globals);
  Expect("alerts", checked.person.alerts, Calls());
}

void ExpectAbout(RunningModule& running, const std::string& first, const std::string& second) {
  running.ExpectCalls("about", kCallsForAbout, [&] { return running.module.About(); });
  Expect("the first text", running.person.aboutBoxes.back().first, first);
  Expect("the second text", running.person.aboutBoxes.back().second, second);
}

CHECK("messages/are-answered-in-silence") {
  RunningModule running;
  ExpectSilence(running, false);
}

CHECK("messages/do-nothing-without-plug-in") {
  CheckedModule checked;
  ExpectSilence(checked, true);
  for (const MessageName& name : {messages::kUnload, messages::kReload})
    Expect(name.selector, checked.module.Send(name), kSuccess);
  Expect("the shut-down", checked.module.ShutDown(), kSuccess);
  checked.ExpectNothingLeft();
}

// The host sends the messages to the code although it has unloaded the plug-in.
CHECK("messages/do-nothing-after-unload") {
  RunningModule running;
  running.ExpectCalls("the unload", WithSuites("release/"),
                      [&] { return running.module.Send(messages::kUnload); });
  ExpectSilence(running, true);
  running.ExpectCalls("the reload", WithSuites("acquire/"),
                      [&] { return running.module.Send(messages::kReload); });
  running.ExpectRunning();
}

CHECK("messages/notifiers-open-context") {
  RunningModule running;
  constexpr const char* kNone = nullptr;
  for (const char* type : {messages::kStartedNotifierType, "VX Other", "", kNone})
    for (const char* selector : {messages::kNotify.selector, "VX Other", kNone})
      running.ExpectCalls("a notifier", kCallsForNotifier,
                          [&] { return running.module.Notify(type, selector); });
  Expect("alerts", running.person.alerts, Calls());
  running.host.Operations().Refuse("VX Context Suite/PopAppContext", kRefused);
  (void)running.module.Notify("VX Other");
  auto& contexts = running.host.Objects().contexts;
  Expect("contexts, when the host refuses to close one", contexts.Objects().size(), 1u);
  if (!contexts.Objects().empty()) contexts.Remove(contexts.Objects().back().get());
}

CHECK("messages/about-shows-two-texts-or-none") {
  RunningModule running;
  running.host.Lists().Replace(ListOwner::kPlugin, 16600,
                               {{1, "Tiles"}, {2, std::string(300, 'x')}});
  ExpectAbout(running, "Tiles", std::string(255, 'x'));
  // The texts belong to the plug-in of the message, the box to the plug-in of the globals.
  NotifierMessage ofHost = running.PlainMessage();
  ofHost.pluginRef = running.host.HostModule();
  ofHost.globals = running.module.Globals();
  Expect("about, with another pluginRef", running.module.SendPlain(messages::kAbout, ofHost),
         kSuccess);
  Expect("about boxes", running.person.aboutBoxes.size(), 2u);
  Expect("the first text", running.person.aboutBoxes.back().first, "");
  running.host.Lists().Replace(ListOwner::kPlugin, 16600, {});
  ExpectAbout(running, "", "");
}

CHECK("messages/about-ignores-refused-texts") {
  CheckedModule checked;
  static KDMBasicSuite lists = *checked.host.Suites().Find<KDMBasicSuite>();
  lists.GetListString = [](ModuleRef, int32_t list, int32_t, char* buffer, size_t size) {
    Expect("the list", list, 16600);
    std::memset(buffer, '?', size);
    return kCannot;
  };
  BasicSuite<1>::tables[KDMBasicSuite::kName] = &lists;
  checked.module.basicSuite = &BasicSuite<1>::table;
  for (const MessageName& name : {messages::kStartup, messages::kAbout, messages::kShutdown})
    Expect(name.selector, checked.module.Send(name), kSuccess);
  Expect("about boxes", checked.person.aboutBoxes.size(), 1u);
  for (const auto& [first, second] : checked.person.aboutBoxes)
    Expect("the texts of the box", first + second, "");
}

// The module acquires and releases suites through the basic suite of the latest message.
CHECK("messages/use-latest-basic-suite") {
  using First = BasicSuite<1>;
  using Second = BasicSuite<2>;
  constexpr size_t kAll = std::size(kSuitesOfModule);
  CheckedModule checked;
  const auto send = [&](QPBasicSuite& basicSuite, const MessageName& name) {
    checked.module.basicSuite = &basicSuite;
    Expect(name.selector, checked.module.Send(name), kSuccess);
  };
  send(First::table, messages::kStartup);
  First::ExpectCalls(kAll, 0);
  send(Second::table, messages::kUnload);
  First::ExpectCalls(0, 0);
  Second::ExpectCalls(0, kAll);
  send(First::table, messages::kReload);
  First::ExpectCalls(kAll, 0);
  send(Second::table, messages::kMenuGo);
  checked.ExpectDialog();
  Second::ExpectCalls(2, 2);
  send(First::table, messages::kShutdown);
  First::ExpectCalls(0, kAll);
  Second::ExpectCalls(0, 0);
  checked.ExpectNothingLeft();
}

}  // namespace
}  // namespace check
