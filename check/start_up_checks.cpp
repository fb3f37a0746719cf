#include <exception>
#include <new>

#include "check/checked_module.h"
#include "platform/qpbasic/ledger.h"

namespace check {
namespace {

size_t Blocks() {
  return qpbasic::Ledger::Get().Counts().blocks;
}

/// A start-up ends at the suite that the host refuses, and releases those before it.
void LacksSuite(size_t index) {
  CheckedModule checked;
  standin::Module& module = checked.module;
  checked.host.Operations().Refuse("acquire/" + std::string(kSuitesOfModule[index]), kRefused);
  Calls calls = checked.CallsDuring([&] { Expect("the answer", module.StartUp(), kRefused); });
  const Calls expected = Joined(WithSuites("acquire/", index + 1), WithSuites("release/", index));
  calls.resize(std::min(calls.size(), expected.size()));  // what follows is the report's
  Expect("the calls", calls, expected);
  Expect("what is kept for the plug-in", module.Globals(), nullptr);
  Expect("alerts", checked.person.alerts.size(), 1u);
  checked.ExpectNothingLeft();
  Expect("the next start-up", module.StartUp(), kSuccess);
}

/// A second start-up, with a record of its own, fails; the first plug-in stays.
void SecondFails(const char* refused) {
  const Trying trying(refused);
  CheckedModule checked;
  standin::Host& host = checked.host;
  standin::Module& module = checked.module;
  Expect("the first start-up", module.StartUp(), kSuccess);
  const MosaicSuite* const table = host.Suites().Find<MosaicSuite>();
  const size_t blocks = Blocks();
  NotifierMessage second = checked.PlainMessage();
  host.Operations().Refuse(refused, kRefused);
  Expect("the second", checked.module.SendPlain("QP Interface", "Startup", second), kRefused);
  Expect("what is kept for the second", second.globals, nullptr);
  // The host may have kept the table of a suite that it refused, so that block is left to it.
  const size_t kept = std::string("QP Suites Suite/AddSuite") == refused;
  Expect("blocks", Blocks(), blocks + kept);

  Expect("the answer to \"About\"", module.About(), kSuccess);
  Expect("about boxes", checked.person.aboutBoxes.size(), 1u);
  Expect("the first one's table stays", host.Suites().Find<MosaicSuite>() == table);
  checked.ExpectDialog("a dialog");
  Expect("the shut-down", module.ShutDown(), kSuccess);
  Expect("kinds of things left", host.Leftovers().size(), kept);
}

/// Two start-ups succeed. The shut-down of the second releases the suites, and the first counts as
/// unloaded from then on.
void SecondSucceeds() {
  CheckedModule checked;
  standin::Module& module = checked.module;
  Expect("the first start-up", module.StartUp(), kSuccess);
  NotifierMessage second = checked.PlainMessage();
  second.pluginRef = checked.host.AddPlugin("second");
  checked.host.Suites().RemoveSuitesOf(module.Ref());  // a host has one suite of a name
  Expect("the second", checked.module.SendPlain("QP Interface", "Startup", second), kSuccess);
  Expect("the second's shut-down", checked.module.SendPlain("QP Interface", "Shutdown", second),
         kSuccess);
  Expect("users of a suite", checked.host.Suites().Users("QP Access Suite"), 0u);
  checked.ExpectCalls("about, of the first", {}, [&] { return module.About(); });
  checked.ExpectCalls("a notifier, of the first", {}, [&] { return module.Notify("VX Other"); });
  Expect("the first's shut-down", module.ShutDown(), kSuccess);
  checked.host.RemovePlugin(second.pluginRef);
  checked.ExpectNothingLeft();
}

void IntroducesPlugIn() {
  CheckedModule checked;
  standin::Host& host = checked.host;
  standin::Module& module = checked.module;
  const size_t blocks = Blocks();
  const Calls introduction = {"QP Plug-ins Suite/SetPluginName", "VX Notifier Suite/AddNotifier",
                              "QP Blocks Suite/AllocateBlock", "QP Suites Suite/AddSuite"};
  checked.ExpectCalls("the start-up", Joined(WithSuites("acquire/"), introduction),
                      [&] { return module.StartUp(); });
  Expect("the plug-in's name", module.Ref()->name, "TesseraeUI");
  Expect("blocks: the object, its set of suites and the published table", Blocks(), blocks + 3);
  const std::string table = qpbasic::Ledger::Get().Forgotten().back();
  Expect("the table has 8 bytes: " + table, table.find("of 8 bytes") != table.npos);
  Expect("the table is named: " + table, table.find("(TesseraeUI)") != table.npos);
  const auto& notifiers = host.Objects().notifiers.Objects();
  Expect("notifiers", notifiers.size(), 1u);
  if (!notifiers.empty()) {
    Expect("the notifier's name", notifiers[0]->name, "TesseraeUI App Started Notifier");
    Expect("the notifier's type", notifiers[0]->type, "VX Application Started Notifier");
  }
  const OpaqueSuite& published = *host.Suites().Suites().Objects().back();
  Expect("the published suite", published.name, MosaicSuite::kName);
  Expect("its version", published.version, 1001);
  Expect("its internal version", published.internalVersion, 1);
  Expect("its plug-in", published.plugin, module.Ref());

  checked.ExpectCalls("the shut-down",
                      Joined({"QP Blocks Suite/FreeBlock"}, WithSuites("release/")),
                      [&] { return module.ShutDown(); });
  Expect("what is kept for the plug-in", module.Globals(), nullptr);
  Expect("alerts", checked.person.alerts, Calls());
  checked.ExpectNothingLeft();
}

void HostWithoutTables() {
  CheckedModule checked;
  static size_t releases = 0;
  QPBasicSuite withoutTables = {
      [](const char*, int32_t, const void**) { return kSuccess; },
      [](const char*, int32_t) { return ++releases, kSuccess; },
  };
  for (QPBasicSuite* basicSuite : {static_cast<QPBasicSuite*>(nullptr), &withoutTables}) {
    NotifierMessage message = checked.PlainMessage();
    message.basicSuite = basicSuite;
    Expect("the answer", checked.module.SendPlain("QP Interface", "Startup", message), kCannot);
    Expect("what is kept for the plug-in", message.globals, nullptr);
  }
  Expect("suites given back: the first, and the one for the report", releases, 2u);
  Expect("a start-up by a whole host", checked.module.StartUp(), kSuccess);
  Expect("the shut-down", checked.module.ShutDown(), kSuccess);
  checked.ExpectNothingLeft();
}

// '!MSG' means that a message is not handled; a start-up with it has failed all the same.
void RefusedAsNotHandled() {
  CheckedModule checked;
  checked.host.Operations().Refuse("QP Plug-ins Suite/SetPluginName", kNotHandled);
  Expect("the answer", checked.module.StartUp(), kNotHandled);
  Expect("alerts", checked.person.alerts.size(), 1u);
  checked.ExpectNothingLeft();
}

void SaysThatMemoryIsShort() {
  size_t block = 0;
  for (const ResultCode expected : {kOutOfMemory, kOutOfMemory, kParameter}) {
    const Trying trying("block " + std::to_string(++block));
    CheckedModule checked;
    qpbasic::Ledger::Get().Refuse({.countdown = block});
    Expect("the answer", checked.module.StartUp(), expected);
    Expect("alerts", checked.person.alerts.size(), 1u);
    checked.ExpectNothingLeft();
  }
  CheckedModule checked;
  Expect("the start-up", checked.module.StartUp(), kSuccess);
  Expect("the unload", checked.module.Unload(), kSuccess);
  qpbasic::Ledger::Get().Refuse({});
  Expect("the reload", checked.module.Reload(), kOutOfMemory);
}

void FreesNoBlockThatItLacks() {
  CheckedModule checked;
  checked.host.Operations().Throw("QP Blocks Suite/AllocateBlock",
                                  std::make_exception_ptr(std::bad_alloc()));
  Expect("the answer", checked.module.StartUp(), kParameter);
  Expect("blocks that go back", checked.host.Operations().Calls("QP Blocks Suite/FreeBlock"), 0u);
  checked.ExpectNothingLeft();
}

void GoesOnWhenASecondFails() {
  for (const char* refused : {"QP Plug-ins Suite/SetPluginName", "VX Notifier Suite/AddNotifier",
                              "QP Suites Suite/AddSuite"})
    SecondFails(refused);
}

}  // namespace

void AddStartUpChecks(const Add& add) {
  add("start-up/introduces-plug-in", IntroducesPlugIn);

  for (size_t i = 0; i < std::size(kSuitesOfModule); ++i)
    add("start-up/refused-suite-" + std::to_string(i + 1), [i] { LacksSuite(i); });

  add("start-up/host-without-tables", HostWithoutTables);
  add("start-up/refused-as-not-handled", RefusedAsNotHandled);
  add("start-up/says-that-memory-is-short", SaysThatMemoryIsShort);
  add("start-up/frees-no-block-that-it-lacks", FreesNoBlockThatItLacks);
  add("start-up/goes-on-when-a-second-fails", GoesOnWhenASecondFails);
  add("start-up/twice-shares-suites", SecondSucceeds);
}

}  // namespace check
