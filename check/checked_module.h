#pragma once

#include <cstdio>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "check/caller_data.h"
#include "check/findings.h"
#include "check/guarded_page.h"
#include "platform/qpbasic/ledger.h"
#include "testkit/function_presenter.h"
#include "testkit/hosted_module.h"
#include "testkit/open_dialog.h"

namespace check {

using enum ResultCode;

/// The code with which the host refuses.
inline constexpr ResultCode kRefused{12};

/// Names of the host's operations, in the order of the calls.
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

/// In the order in which the module acquires and releases its suites.
inline constexpr const char* kSuitesOfModule[] = {
    "QP Access Suite",  "QP Plug-ins Suite",  "VX Notifier Suite",
    "VX Context Suite", "KDM Basic Suite",    "QP Blocks Suite",
    "QP Suites Suite",  "VX Real Math Suite", "VX Unicode String Suite",
};

/// "acquire/" or "release/" with each of the module's first suites.
inline Calls WithSuites(const std::string& verb, size_t count = std::size(kSuitesOfModule)) {
  Calls calls;
  for (size_t i = 0; i < count; ++i) calls.push_back(verb + kSuitesOfModule[i]);
  return calls;
}

/// The resources beside the module's file; this program's if there are none.
inline standin::ResourceFolders Resources() {
  auto folders = standin::ResourceFolders::OfProgram();
  const auto beside = std::filesystem::absolute(settings.module).parent_path();
  if (std::filesystem::is_directory(beside / "layouts")) folders.plugin = beside;
  return folders;
}

/// Checks each message: its record ends at an inaccessible page, and the module may change only
/// `globals`.
class WatchedModule : public standin::Module {
 public:
  using standin::Module::Module;

  /// Sends a message to the module's code, with a record of the caller's own.
  ResultCode SendPlain(const MessageName& name, NotifierMessage& message) {
    return Deliver(standin::ModuleImage(settings.module).Entry(), name.caller, name.selector,
                   message);
  }

  /// In place of the host's own in each message, unless null.
  QPBasicSuite* basicSuite = nullptr;

 private:
  ResultCode Deliver(PluginEntryPoint to, const char* caller, const char* selector,
                     PluginMessage& message) override {
    char name[160];
    std::snprintf(name, sizeof name, "%s / %s", caller ? caller : "null",
                  selector ? selector : "null");
    const Trying trying(name);
    // Only a notifier's record is longer than the common part.
    const bool isLong = caller && std::strcmp(caller, messages::kNotifierCaller) == 0;
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
      Fail("the notifier's part of the message record has changed");
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
    host.Operations().Listen([this](const std::string& name) { OnOperation(name); });
  }
  virtual ~CheckedModule() {
    host.Operations().Listen(nullptr);
  }

  /// The host's operations that the module calls while `act` runs.
  Calls CallsDuring(const std::function<void()>& act) {
    Calls during;
    calls = &during;
    act();
    calls = nullptr;
    return during;
  }

  /// Expects that `send` succeeds and that the module makes these calls meanwhile.
  void ExpectCalls(std::string_view what, const Calls& expected,
                   const std::function<ResultCode()>& send) {
    const Trying trying(what);
    Expect("calls of the host", CallsDuring([&] { Expect("the answer", send(), kSuccess); }),
           expected);
  }

  /// Requests the dialog, which the installed presenter shows. Meanwhile record and state lie where
  /// memory ends.
  ResultCode RunDialog(CallerData& data) {
    const auto* suite = host.Suites().Find<MosaicSuite>();
    if (!suite) return kCannot;
    MosaicParameters* const record = pages[0].Put(data.record);
    MosaicDialogState* const state = pages[1].Put(data.state);
    MosaicParameters** const params = pages[2].Put(record);
    const Trying trying("RunMosaicDialog");
    const ResultCode code = suite->RunMosaicDialog(state, params);
    NoteOperation(nullptr);
    data = {*record, *state};
    if (*params != record) Fail("the address of the record has changed");
    return code;
  }
  /// Requests the dialog, on which `act` acts. What it throws is a finding.
  ResultCode RunDialog(CallerData& data,
                       const std::function<void(const testkit::OpenDialog& open)>& act) {
    const FunctionPresenter presenter([&](nrvui::ui::UI_Dialog& dialog) {
      try {
        act({dialog});
      } catch (const std::exception& error) {
        Fail(error.what());
      }
    });
    return RunDialog(data);
  }
  /// Expects that the dialog opens, and confirms it.
  void ExpectDialog() {
    CallerData data;
    size_t shown = 0;
    const auto confirm = [&](const testkit::OpenDialog& open) { ++shown, open.Confirm(); };
    Expect("the answer to Return", RunDialog(data, confirm), kSuccess);
    Expect("dialogs shown", shown, 1u);
  }
  /// Expects that the plug-in shows its about box and its dialog.
  void ExpectRunning() {
    const size_t boxes = person.aboutBoxes.size();
    Expect("about", module.About(), kSuccess);
    Expect("about boxes", person.aboutBoxes.size(), boxes + 1);
    ExpectDialog();
  }
  /// Expects that a request fails and makes no call of the host, whose plug-in may be gone.
  void ExpectNoDialog(std::string_view what, decltype(MosaicSuite::RunMosaicDialog) run,
                      MosaicDialogState* state, MosaicParameters** params) {
    const Trying trying(what);
    const FunctionPresenter presenter([](auto&) { Fail("a dialog is shown"); });
    const Calls during = CallsDuring([&] { Expect("the answer", run(state, params), kCannot); });
    Expect("calls of the host", during, Calls());
  }

  /// The record of a message to an object that has not been started.
  NotifierMessage PlainMessage() {
    NotifierMessage message{};
    message.pluginRef = module.Ref();
    message.basicSuite = host.BasicSuite();
    return message;
  }

  void ExpectNothingLeft() const {
    Expect("what is left", host.Leftovers(), Calls());
  }

 protected:
  /// Called for each call of an operation of the host, before the operation. Allocates nothing
  /// outside of CallsDuring and --verbose.
  virtual void OnOperation(const std::string& name) {
    NoteOperation(name.c_str());
    if (calls) calls->push_back(name);
    if (settings.isVerbose) Report("  " + name);
  }

 private:
  Calls* calls = nullptr;
  GuardedPage pages[3];
};

/// A checked module that runs from the constructor to the destructor. A check may shut it down
/// before. Nothing may be left at the end.
struct RunningModule : CheckedModule {
  explicit RunningModule(const standin::ResourceFolders& resources = Resources())
      : CheckedModule(resources) {
    Expect("the start-up", module.StartUp(), kSuccess);
  }
  ~RunningModule() override {
    Expect("the shut-down", module.ShutDown(), kSuccess);
    ExpectNothingLeft();
  }
};

}  // namespace check
