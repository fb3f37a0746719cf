#include <cstring>
#include <string_view>

#include "check/basic_suite.h"
#include "check/checked_module.h"
#include "testkit/known_messages.h"

namespace check {
namespace {

using standin::ListOwner;

constexpr const char* kNone = nullptr;

/// All messages but those of the lifecycle are answered with 0, without a call of the host.
void ExpectSilence(CheckedModule& checked, bool isAboutToo) {
  std::vector<KnownMessage> messages = {
      {"VX Menu", "vx go", ""},      {"VX Menu", "VX Go ", ""},
      {"VX Men", "VX Go", ""},       {"QP Interface", "Startup ", ""},
      {"QP Interface", "about", ""}, {"", "", ""},
      {nullptr, nullptr, ""},        {"QP Interface", nullptr, ""},
      {nullptr, "About", ""},        {"VX Script Message Caller", "anything", ""},
  };
  for (const KnownMessage& known : kKnownMessages) {
    const std::string_view selector = known.selector;
    if (selector != "Unload" && (isAboutToo || selector != "About")) messages.push_back(known);
  }
  void* const kept = checked.module.Globals();
  for (const auto& [caller, selector, operation] : messages) {
    const std::string what =
        std::string(caller ? caller : "null") + " / " + (selector ? selector : "null");
    checked.ExpectCalls(what, {}, [&, caller = caller, selector = selector] {
      return checked.module.Send(caller, selector);
    });
  }
  Expect("the plug-in is kept", checked.module.Globals() == kept);
  Expect("alerts", checked.person.alerts, Calls());
}

void ExpectAbout(RunningModule& running, const std::string& first, const std::string& second) {
  running.ExpectCalls("about", kCallsForAbout, [&] { return running.module.About(); });
  Expect("the first text", running.person.aboutBoxes.back().first, first);
  Expect("the second text", running.person.aboutBoxes.back().second, second);
}

/// Suites are acquired and released through the basic suite of the latest message.
void ExpectLatestBasicSuite() {
  using First = BasicSuite<1>;
  using Second = BasicSuite<2>;
  constexpr size_t kAll = std::size(kSuitesOfModule);
  CheckedModule checked;
  WatchedModule& module = checked.module;
  module.basicSuite = &First::table;
  Expect("the start-up", module.StartUp(), kSuccess);
  First::ExpectCalls(kAll, 0);
  module.basicSuite = &Second::table;
  Expect("the unload", module.Send("QP Access", "Unload"), kSuccess);
  First::ExpectCalls(0, 0);
  Second::ExpectCalls(0, kAll);
  module.basicSuite = &First::table;
  Expect("the reload", module.Send("QP Access", "Reload"), kSuccess);
  First::ExpectCalls(kAll, 0);
  module.basicSuite = &Second::table;
  Expect("a message", module.Send("VX Menu", "VX Go"), kSuccess);
  checked.ExpectDialog("a dialog");
  Second::ExpectCalls(2, 2);
  module.basicSuite = &First::table;
  Expect("the shut-down", module.ShutDown(), kSuccess);
  First::ExpectCalls(0, kAll);
  Second::ExpectCalls(0, 0);
  checked.ExpectNothingLeft();
}

void AreAnsweredInSilence() {
  RunningModule running;
  ExpectSilence(running, false);
}

void ReachNobodyWithoutPlugIn() {
  CheckedModule checked;
  ExpectSilence(checked, true);
  for (const char* selector : {"Unload", "Reload"})
    Expect(selector, checked.module.Send("QP Access", selector), kSuccess);
  Expect("the shut-down", checked.module.ShutDown(), kSuccess);
  checked.ExpectNothingLeft();
}

// Its suites are given back, although its code is still there.
void ReachNobodyAfterUnload() {
  RunningModule running;
  running.ExpectCalls("the unload", WithSuites("release/"),
                      [&] { return running.module.Send("QP Access", "Unload"); });
  ExpectSilence(running, true);
  running.ExpectCalls("the reload", WithSuites("acquire/"),
                      [&] { return running.module.Send("QP Access", "Reload"); });
  Expect("about", running.module.About(), kSuccess);
  Expect("about boxes", running.person.aboutBoxes.size(), 1u);
}

void NotifiersOpenContext() {
  RunningModule running;
  for (const char* type : {"VX Application Started Notifier", "VX Other", "", kNone})
    for (const char* selector : {"VX Notify", "VX Other", kNone})
      running.ExpectCalls("a notifier", kCallsForNotifier,
                          [&] { return running.module.Notify(type, selector); });
  Expect("alerts", running.person.alerts, Calls());
  running.host.Operations().Refuse("VX Context Suite/PopAppContext", kRefused);
  (void)running.module.Notify("VX Other");
  auto& contexts = running.host.Objects().contexts;
  Expect("contexts when none is closed", contexts.Objects().size(), 1u);
  if (!contexts.Objects().empty()) contexts.Remove(contexts.Objects().back().get());
}

void AboutShowsTwoTextsOrNone() {
  RunningModule running;
  running.host.Lists().Replace(ListOwner::kPlugin, 16600,
                               {{1, "Tiles"}, {2, std::string(300, 'x')}});
  ExpectAbout(running, "Tiles", std::string(255, 'x'));
  // The texts are those of the message's plug-in, the box is this one's own.
  NotifierMessage ofHost = running.PlainMessage();
  ofHost.pluginRef = running.host.HostModule();
  ofHost.globals = running.module.Globals();
  Expect("about, of another", running.module.SendPlain("QP Interface", "About", ofHost), kSuccess);
  Expect("about boxes", running.person.aboutBoxes.size(), 2u);
  Expect("the first text", running.person.aboutBoxes.back().first, "");
  running.host.Lists().Replace(ListOwner::kPlugin, 16600, {});
  ExpectAbout(running, "", "");
}

void AboutIgnoresRefusedTexts() {
  CheckedModule checked;
  static KDMBasicSuite lists = *checked.host.Suites().Find<KDMBasicSuite>();
  lists.GetListString = [](ModuleRef, int32_t list, int32_t, char* buffer, size_t size) {
    Expect("the list", list, 16600);
    std::memset(buffer, '?', size);
    return kCannot;
  };
  BasicSuite<1>::tables[KDMBasicSuite::kName] = &lists;
  checked.module.basicSuite = &BasicSuite<1>::table;
  for (const char* selector : {"Startup", "About", "Shutdown"})
    Expect(selector, checked.module.Send("QP Interface", selector), kSuccess);
  Expect("about boxes", checked.person.aboutBoxes.size(), 1u);
  for (const auto& [first, second] : checked.person.aboutBoxes)
    Expect("the texts of the box", first + second, "");
}

}  // namespace

void AddMessageChecks(const Add& add) {
  add("messages/are-answered-in-silence", AreAnsweredInSilence);
  add("messages/reach-nobody-without-plug-in", ReachNobodyWithoutPlugIn);
  add("messages/reach-nobody-after-unload", ReachNobodyAfterUnload);
  add("messages/notifiers-open-context", NotifiersOpenContext);
  add("messages/about-shows-two-texts-or-none", AboutShowsTwoTextsOrNone);
  add("messages/about-ignores-refused-texts", AboutIgnoresRefusedTexts);

  add("messages/go-through-latest-basic-suite", ExpectLatestBasicSuite);
}

}  // namespace check
