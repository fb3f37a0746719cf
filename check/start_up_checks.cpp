#include <exception>
#include <new>

#include "check/checked_module.h"
#include "platform/qpbasic/ledger.h"

namespace check {
namespace {

size_t Blocks() {
  return qpbasic::Ledger::Get().Counts().blocks;
}

/// One check for each suite: a start-up ends at the suite that the host refuses, and releases those
/// before it.
const Registration kSuiteChecks([](const Add& add) {
  for (size_t i = 0; i < std::size(kSuitesOfModule); ++i) {
    add("start-up/refused-suite-" + std::to_string(i + 1), [i] {
      CheckedModule checked;
      standin::Module& module = checked.module;
      checked.host.Operations().Refuse(WithSuites("acquire/")[i], kRefused);
      Calls calls = checked.CallsDuring([&] { Expect("the answer", module.StartUp(), kRefused); });
      const Calls expected = Joined(WithSuites("acquire/", i + 1), WithSuites("release/", i));
      calls.resize(std::min(calls.size(), expected.size()));  // what follows belongs to the report
      Expect("the calls", calls, expected);
      Expect("globals", module.Globals(), nullptr);
      Expect("alerts", checked.person.alerts.size(), 1u);
      checked.ExpectNothingLeft();
      Expect("the next start-up", module.StartUp(), kSuccess);
    });
  }
});

// A second start-up, with a record of its own, fails; the first plug-in continues.
CHECK("start-up/survives-failure-of-a-second") {
  for (const std::string refused : {"QP Plug-ins Suite/SetPluginName",
                                    "VX Notifier Suite/AddNotifier", "QP Suites Suite/AddSuite"}) {
    const Trying trying(refused);
    CheckedModule checked;
    standin::Host& host = checked.host;
    Expect("the first start-up", checked.module.StartUp(), kSuccess);
    const MosaicSuite* const table = host.Suites().Find<MosaicSuite>();
    const size_t blocks = Blocks();
    NotifierMessage second = checked.PlainMessage();
    host.Operations().Refuse(refused, kRefused);
    Expect("the second start-up", checked.module.SendPlain(messages::kStartup, second), kRefused);
    Expect("globals of the second", second.globals, nullptr);
    // The host may have kept the address of the table that it refused, so the block stays.
    const size_t kept = refused == "QP Suites Suite/AddSuite";
    Expect("blocks", Blocks(), blocks + kept);
    Expect("the table of the first stays", host.Suites().Find<MosaicSuite>() == table);
    checked.ExpectRunning();
    Expect("the shut-down", checked.module.ShutDown(), kSuccess);
    Expect("kinds of things left", host.Leftovers().size(), kept);
  }
}

// The shut-down of a second plug-in object releases the suites that both share. The first then
// counts as unloaded.
CHECK("start-up/shares-suites-with-a-second") {
  CheckedModule checked;
  WatchedModule& module = checked.module;
  Expect("the first start-up", module.StartUp(), kSuccess);
  NotifierMessage second = checked.PlainMessage();
  second.pluginRef = checked.host.AddPlugin("second");
  checked.host.Suites().RemoveSuitesOf(module.Ref());  // the name must be free for the second
  for (const MessageName& name : {messages::kStartup, messages::kShutdown})
    Expect(name.selector, module.SendPlain(name, second), kSuccess);
  Expect("users of a suite", checked.host.Suites().Users("QP Access Suite"), 0u);
  checked.ExpectCalls("about, of the first", {}, [&] { return module.About(); });
  checked.ExpectCalls("a notifier, of the first", {}, [&] { return module.Notify("VX Other"); });
  Expect("the shut-down of the first", module.ShutDown(), kSuccess);
  checked.host.RemovePlugin(second.pluginRef);
  checked.ExpectNothingLeft();
}

CHECK("start-up/registers-plug-in") {
  CheckedModule checked;
  standin::Host& host = checked.host;
  standin::Module& module = checked.module;
  const size_t blocks = Blocks();
  const Calls registration = {"QP Plug-ins Suite/SetPluginName", "VX Notifier Suite/AddNotifier",
                              "QP Blocks Suite/AllocateBlock", "QP Suites Suite/AddSuite"};
  checked.ExpectCalls("the start-up", Joined(WithSuites("acquire/"), registration),
                      [&] { return module.StartUp(); });
  Expect("the plug-in's name", module.Ref()->name, "TesseraeUI");
  Expect("blocks: the object, its set of suites and the published table", Blocks(), blocks + 3);
  const std::string table = qpbasic::Ledger::Get().Unfreed().back();
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
  Expect("globals", module.Globals(), nullptr);
  Expect("alerts", checked.person.alerts, Calls());
  checked.ExpectNothingLeft();
}

CHECK("start-up/fails-without-suite-tables") {
  CheckedModule checked;
  static size_t releases = 0;
  QPBasicSuite withoutTables = {
      [](const char*, int32_t, const void**) { return kSuccess; },
      [](const char*, int32_t) { return ++releases, kSuccess; },
  };
  for (QPBasicSuite* basicSuite : {static_cast<QPBasicSuite*>(nullptr), &withoutTables}) {
    NotifierMessage message = checked.PlainMessage();
    message.basicSuite = basicSuite;
    Expect("the answer", checked.module.SendPlain(messages::kStartup, message), kCannot);
    Expect("globals", message.globals, nullptr);
  }
  Expect("suites released: the first, and the one for the report", releases, 2u);
  Expect("a start-up by a complete host", checked.module.StartUp(), kSuccess);
  Expect("the shut-down", checked.module.ShutDown(), kSuccess);
  checked.ExpectNothingLeft();
}

// '!MSG' means that a message is not handled. From a start-up it is a failure like others.
CHECK("start-up/fails-with-code-for-not-handled") {
  CheckedModule checked;
  checked.host.Operations().Refuse("QP Plug-ins Suite/SetPluginName", kNotHandled);
  Expect("the answer", checked.module.StartUp(), kNotHandled);
  Expect("alerts", checked.person.alerts.size(), 1u);
  checked.ExpectNothingLeft();
}

CHECK("start-up/reports-lack-of-memory") {
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

CHECK("start-up/frees-only-allocated-blocks") {
  CheckedModule checked;
  checked.host.Operations().Throw("QP Blocks Suite/AllocateBlock",
                                  std::make_exception_ptr(std::bad_alloc()));
  Expect("the answer", checked.module.StartUp(), kParameter);
  Expect("calls of FreeBlock", checked.host.Operations().Calls("QP Blocks Suite/FreeBlock"), 0u);
  checked.ExpectNothingLeft();
}

}  // namespace
}  // namespace check
