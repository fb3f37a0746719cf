#pragma once

#include <cstdio>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "check/caller_data.h"
#include "check/check.h"
#include "check/findings.h"
#include "check/guarded_page.h"
#include "platform/nrvui/gesture.h"
#include "platform/qpbasic/ledger.h"
#include "testkit/function_presenter.h"
#include "testkit/hosted_module.h"

namespace check {

using enum ResultCode;

/// The answer of a host that refuses.
inline constexpr ResultCode kRefused{12};

/// The host's operations that are called, in their order.
using Calls = std::vector<std::string>;

inline Calls Joined(Calls calls, const Calls& more) {
  calls.insert(calls.end(), more.begin(), more.end());
  return calls;
}

inline const Calls kCallsForNotifier = {"VX Context Suite/PushAppContext",
                                        "VX Context Suite/PopAppContext"};
inline const Calls kCallsForAbout = {"KDM Basic Suite/GetListString",
                                     "KDM Basic Suite/GetListString",
                                     "KDM Basic Suite/ShowAboutBox"};

/// In the order in which the module takes and gives back its suites.
inline constexpr const char* kSuitesOfModule[] = {
    "QP Access Suite",  "QP Plug-ins Suite",  "VX Notifier Suite",
    "VX Context Suite", "KDM Basic Suite",    "QP Blocks Suite",
    "QP Suites Suite",  "VX Real Math Suite", "VX Unicode String Suite",
};

/// "acquire/" or "release/" with each of the first suites of the module.
inline Calls WithSuites(const std::string& verb, size_t count = std::size(kSuitesOfModule)) {
  Calls operations;
  for (size_t i = 0; i < count; ++i) operations.push_back(verb + kSuitesOfModule[i]);
  return operations;
}

/// The module's own where its file lies in a folder with them, otherwise those of this program.
inline standin::ResourceFolders Resources() {
  auto folders = standin::ResourceFolders::OfProgram();
  const auto beside = std::filesystem::absolute(settings.module).parent_path();
  if (std::filesystem::is_directory(beside / "layouts")) folders.plugin = beside;
  return folders;
}

/// A module whose messages are checked: each record ends at an inaccessible page, and the module
/// may change only `globals`.
class WatchedModule : public standin::Module {
 public:
  using standin::Module::Module;

  /// A message with a record of the caller's own, sent to the module's code itself.
  ResultCode SendPlain(const char* caller, const char* selector, NotifierMessage& message) {
    return Deliver(standin::ModuleImage(settings.module).Entry(), caller, selector, message);
  }

  /// In place of the host's own in each message, where not null.
  QPBasicSuite* basicSuite = nullptr;

 private:
  ResultCode Deliver(PluginEntryPoint to, const char* caller, const char* selector,
                     PluginMessage& message) override {
    char name[160];
    std::snprintf(name, sizeof name, "%s / %s", caller ? caller : "null",
                  selector ? selector : "null");
    const Trying trying(name);
    // Only a notifier's record is longer than the common part.
    const bool isLong = caller && std::strcmp(caller, "VX Notifier") == 0;
    const size_t size = isLong ? sizeof(NotifierMessage) : sizeof(PluginMessage);
    message.reserved0 = &message;
    if (basicSuite) message.basicSuite = basicSuite;
    auto* const given = static_cast<PluginMessage*>(std::memcpy(page.Last(size), &message, size));
    const ResultCode code = to(caller, selector, given);
    NoteOperation(nullptr);
    message.globals = given->globals;
    Expect("reserved0", given->reserved0, message.reserved0);
    Expect("pluginRef", given->pluginRef, message.pluginRef);
    Expect("basicSuite", given->basicSuite, message.basicSuite);
    if (std::memcmp(given + 1, &message + 1, size - sizeof message) != 0)
      Fail("what follows in the message's record is changed");
    return code;
  }

  GuardedPage page;
};

/// The module that is checked, under a host of its own and not yet started.
class CheckedModule : public ModuleUnderHost<WatchedModule> {
 public:
  explicit CheckedModule(const standin::ResourceFolders& resources = Resources())
      : ModuleUnderHost(settings.module, resources) {
#ifndef __SANITIZE_ADDRESS__  // which watches blocks itself
    qpbasic::Ledger::Get().WatchContents();
#endif
    host.Operations().Listen([this](const std::string& operation) {
      NoteOperation(operation.c_str());
      if (calls) calls->push_back(operation);
      if (settings.isVerbose) Report("  " + operation);
    });
  }

  Calls CallsDuring(const std::function<void()>& act) {
    Calls during;
    calls = &during;
    act();
    calls = nullptr;
    return during;
  }

  /// Expects success of what is sent, and these calls meanwhile.
  void ExpectCalls(std::string_view what, const Calls& expected,
                   const std::function<ResultCode()>& send) {
    const Trying trying(what);
    Expect("calls of the host", CallsDuring([&] { Expect("the answer", send(), kSuccess); }),
           expected);
  }

  /// Calls the suite's function. While it runs, record and state lie where memory ends.
  ResultCode RunDialog(MosaicParameters& record, MosaicDialogState& state) {
    const auto* suite = host.Suites().Find<MosaicSuite>();
    if (!suite) return kCannot;
    MosaicParameters* const givenRecord = pages[0].Put(record);
    MosaicDialogState* const givenState = pages[1].Put(state);
    MosaicParameters** const params = pages[2].Put(givenRecord);
    const Trying trying("RunMosaicDialog");
    const ResultCode code = suite->RunMosaicDialog(givenState, params);
    NoteOperation(nullptr);
    record = *givenRecord;
    state = *givenState;
    if (*params != givenRecord) Fail("the address of the record is changed");
    return code;
  }
  /// The dialog over a record of its own, for the installed presenter.
  ResultCode RunSampleDialog() {
    MosaicParameters record = SampleRecord();
    MosaicDialogState state{};
    return RunDialog(record, state);
  }
  /// The same, and presses Return. Expects that the dialog is shown.
  void ExpectDialog(std::string_view what) {
    const Trying trying(what);
    size_t shown = 0;
    const FunctionPresenter presenter([&](nrvui::ui::UI_Dialog& dialog) {
      ++shown;
      (void)nrvui::gestures::Press(dialog, nrvui::gestures::Key::kReturn);
    });
    Expect("the answer to Return", RunSampleDialog(), kSuccess);
    Expect("dialogs shown", shown, 1u);
  }

  /// Expects a request to be refused without a call of the host, whose plug-in may be gone.
  void ExpectNoDialog(std::string_view what, decltype(MosaicSuite::RunMosaicDialog) run,
                      MosaicDialogState* state, MosaicParameters** params) {
    const Trying trying(what);
    const FunctionPresenter presenter([](auto&) { Fail("a dialog is shown"); });
    const Calls during = CallsDuring([&] { Expect("the answer", run(state, params), kCannot); });
    Expect("calls of the host", during, Calls());
  }

  /// A record for a message of the caller's own, with nothing kept in it.
  NotifierMessage PlainMessage() {
    NotifierMessage message{};
    message.pluginRef = module.Ref();
    message.basicSuite = host.BasicSuite();
    return message;
  }

  void ExpectNothingLeft() const {
    Expect("what is left", host.Leftovers(), Calls());
  }

 private:
  Calls* calls = nullptr;
  GuardedPage pages[3];
};

/// The same, started until the end of the scope; it may already be shut down then, and nothing may
/// be left.
struct RunningModule : CheckedModule {
  explicit RunningModule(const standin::ResourceFolders& resources = Resources())
      : CheckedModule(resources) {
    Expect("the start-up", module.StartUp(), kSuccess);
  }
  ~RunningModule() {
    Expect("the shut-down", module.ShutDown(), kSuccess);
    ExpectNothingLeft();
  }
};

}  // namespace check
