#include <string_view>

#include "check/checked_module.h"
#include "check/known_messages.h"

namespace check {
namespace {

using standin::ListOwner;

constexpr const char* kNone = nullptr;

/// All messages but those that begin or end something are answered with 0 and ask nothing.
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

/// A host's basic suite in which one suite has another table.
struct OtherBasicSuite {
  static ResultCode Acquire(const char* name, int32_t version, const void** table) {
    const ResultCode code = standin::Host::Current().BasicSuite()->Acquire(name, version, table);
    if (std::string_view(name) == KDMBasicSuite::kName && !Failed(code)) *table = &lists;
    return code;
  }
  static ResultCode Release(const char* name, int32_t version) {
    ++releases;
    return standin::Host::Current().BasicSuite()->Release(name, version);
  }

  inline static KDMBasicSuite lists{};
  inline static size_t releases = 0;
  QPBasicSuite suite = {&Acquire, &Release};
};

}  // namespace

void AddMessageChecks(const Add& add) {
  add("messages/are-answered-in-silence", [] {
    RunningModule running;
    ExpectSilence(running, false);
  });

  add("messages/reach-nobody-without-plug-in", [] {
    CheckedModule checked;
    ExpectSilence(checked, true);
    for (const char* selector : {"Unload", "Reload"})
      Expect(selector, checked.module.Send("QP Access", selector), kSuccess);
    Expect("the shut-down", checked.module.ShutDown(), kSuccess);
    checked.ExpectNothingLeft();
  });

  // Its suites are given back, although its code is still there.
  add("messages/reach-nobody-after-unload", [] {
    RunningModule running;
    running.ExpectCalls("the unload", WithSuites("release/"),
                        [&] { return running.module.Send("QP Access", "Unload"); });
    ExpectSilence(running, true);
    running.ExpectCalls("the reload", WithSuites("acquire/"),
                        [&] { return running.module.Send("QP Access", "Reload"); });
    Expect("about", running.module.About(), kSuccess);
    Expect("about boxes", running.person.aboutBoxes.size(), 1u);
  });

  add("messages/notifiers-open-context", [] {
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
  });

  add("messages/about-shows-two-texts-or-none", [] {
    RunningModule running;
    running.host.Lists().Replace(ListOwner::kPlugin, 16600,
                                 {{1, "Tiles"}, {2, std::string(300, 'x')}});
    ExpectAbout(running, "Tiles", std::string(255, 'x'));
    // The texts are those of the message's plug-in, the box is this one's own.
    PluginMessage ofHost = running.PlainMessage();
    ofHost.pluginRef = running.host.HostModule();
    ofHost.globals = running.module.Globals();
    Expect("about, of another", running.SendPlain("QP Interface", "About", ofHost), kSuccess);
    Expect("about boxes", running.person.aboutBoxes.size(), 2u);
    Expect("the first text", running.person.aboutBoxes.back().first, "");
    running.host.Lists().Replace(ListOwner::kPlugin, 16600, {});
    ExpectAbout(running, "", "");
  });

  // What stands in the buffer when a text is refused is none, and the suites go back through the
  // basic suite of the latest message.
  add("messages/go-through-latest-basic-suite", [] {
    CheckedModule checked;
    OtherBasicSuite other;
    const void* table = nullptr;
    Expect(
        "the host's suite",
        checked.host.BasicSuite()->Acquire(KDMBasicSuite::kName, KDMBasicSuite::kVersion, &table),
        kSuccess);
    OtherBasicSuite::lists = *static_cast<const KDMBasicSuite*>(table);
    (void)checked.host.BasicSuite()->Release(KDMBasicSuite::kName, KDMBasicSuite::kVersion);
    OtherBasicSuite::lists.GetListString = [](ModuleRef, int32_t, int32_t, char* buffer, size_t) {
      buffer[0] = '?';
      return kCannot;
    };
    PluginMessage message = checked.PlainMessage();
    message.basicSuite = &other.suite;
    for (const char* selector : {"Startup", "About", "Shutdown"})
      Expect(selector, checked.SendPlain("QP Interface", selector, message), kSuccess);
    Expect("about boxes", checked.person.aboutBoxes.size(), 1u);
    for (const auto& [first, second] : checked.person.aboutBoxes)
      Expect("the texts of the box", first + second, "");
    Expect("suites given back", OtherBasicSuite::releases, std::size(kSuitesOfModule));

    checked.host.RemoveRegistrations(checked.module.Ref());
    message.basicSuite = checked.host.BasicSuite();
    Expect("a start-up", checked.SendPlain("QP Interface", "Startup", message), kSuccess);
    OtherBasicSuite::releases = 0;
    message.basicSuite = &other.suite;
    Expect("the shut-down", checked.SendPlain("QP Interface", "Shutdown", message), kSuccess);
    Expect("suites given back", OtherBasicSuite::releases, std::size(kSuitesOfModule));
    checked.ExpectNothingLeft();
  });
}

}  // namespace check
