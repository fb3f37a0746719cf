#pragma once

#include <algorithm>
#include <functional>

#include "check/checked_module.h"
#include "platform/nrvui/scripted_presenter.h"
#include "platform/standin/host_codes.h"

namespace check {

/// What fails during a session.
struct Failing {
  /// How often it has failed so far.
  std::function<size_t()> strikes = [] { return 0; };
  /// The answers that the contract allows for a message or a dialog during which it failed;
  /// `expected` is the answer without failures.
  std::function<std::vector<ResultCode>(bool isDialog, ResultCode expected)> answers;
  /// Whether it can strike any code of the module, and so an alert too.
  bool isAnywhere = false;
  /// Called before and after each call of the module.
  std::function<void(bool isInside)> onCall = [](bool) {};
};

/// A host that continues after every failure. It checks each message and dialog: the answer, the
/// alert, and that the caller's data is unchanged without success. One during which nothing fails
/// must succeed.
class Session : public CheckedModule {
 public:
  /// From start-up to shut-down: messages, an unload and a reload, and the dialog confirmed,
  /// cancelled and closed, in lengths and in percent, with and without a source size.
  void RunLifeCycle() {
    Send("start up", &Module::StartUp);
    Send("about", &Module::About);
    Send("go", [](Module& to) { return to.Send("VX Menu", "VX Go"); });
    for (const char* type : {"VX Application Started Notifier", "VX Other Notifier"})
      Send(type, [&](Module& to) { return to.Notify(type); });
    Show(
        "enter HorizontalCountTxt 12\nclick MosaicUseRatioButton\nclick GrayRadio\n"
        "resize 600 500\nkey Return");
    Send("unload", &Module::Unload);
    Send("reload", kReload);
    Show(
        "enter NewWidthTxt 1 in\nclick VerticalRadio\nclick MosaicUseRatioButton\n"
        "click DeleteRasterChk\nkey Escape",
        kCancelled);
    Show("click UsePercentChk\nenter NewWidthTxt 50\nclick okButton");
    Show("enter VerticalCountTxt 7\nclose", kCancelled, true);
    Show("enter NewHeightTxt 25 %\nkey Return", kSuccess, true);
    Send("shut down", &Module::ShutDown);
  }

  /// A host that lacks a suite at start-up, at reload and for a dialog, so that the module shows
  /// each of its error texts.
  void RunFailures() {
    const auto lack = [&](const char* suite, bool isAbsent) {
      host.Suites().SetAbsent(suite, isAbsent);
    };
    lack(kNeededSuite, true);
    Send("start up", &Module::StartUp, standin::kSuiteNotFound);
    host.Lists().Replace(standin::ListOwner::kPlugin, 16050, {{1, "none"}, {2, "Reason: %s."}});
    Send("start up", &Module::StartUp, standin::kSuiteNotFound);
    host.Lists().Replace(standin::ListOwner::kHost, 257, {});
    Send("start up", &Module::StartUp, standin::kSuiteNotFound);
    Send("message without plug-in", &Module::About);

    lack(kNeededSuite, false);
    Send("start up", &Module::StartUp);
    Send("unload", &Module::Unload);
    lack(kNeededSuite, true);
    Send("reload", kReload, module.Globals() ? standin::kSuiteNotFound : kSuccess);
    Send("message without suites", &Module::About);
    Show("click MosaicUseRatioButton\nkey Return");
    lack(kNeededSuite, false);
    Send("reload", kReload);
    lack("VX User Interface Main Suite", true);
    Show("key Return", kCannot);
    lack("VX User Interface Main Suite", false);
    Send("shut down", &Module::ShutDown);
  }

  /// Whether all answers so far were those of a session without failures.
  bool WentAsExpected() const { return asExpected; }
  /// Ends all failures and forgets them.
  void Restore() {
    host.Operations().ClearFaults();
    failing = {};
    asExpected = true;
  }

  Failing failing;

 private:
  using Module = standin::Module;
  static constexpr auto kReload = [](Module& module) { return module.Reload(); };
  static constexpr const char* kNeededSuite = "VX Real Math Suite";

  void OnOperation(const std::string& name) override {
    CheckedModule::OnOperation(name);
    if (failing.strikes() == struckBefore) isReporting = hasAskedForNeededSuite;
    hasAskedForNeededSuite |= name.starts_with("acquire/") && name.ends_with(kNeededSuite);
  }

  /// Calls the module and checks its answer.
  ResultCode Play(bool isDialog, ResultCode expected, const std::function<ResultCode()>& call) {
    struckBefore = failing.strikes();
    hasAskedForNeededSuite = isReporting = isInterrupted = false;
    const bool wasLoaded = module.IsLoaded();
    ResultCode code = kOutOfMemory;
    failing.onCall(true);
    try {
      code = call();
      failing.onCall(false);
    } catch (...) {
      failing.onCall(false);
      // Only a host that cannot load the code may throw.
      if (module.IsLoaded()) Fail("an exception has left the module");
    }
    isStruck = failing.strikes() != struckBefore;
    asExpected &= code == expected;
    if (!module.IsLoaded() && (!wasLoaded || Failed(code))) return code;

    std::vector<ResultCode> allowed = {expected};
    // A failure while the module reports another one goes unnoticed.
    if (isStruck && (failing.isAnywhere || isDialog || !Failed(expected) || !isReporting))
      allowed = failing.answers(isDialog, expected);
    if (isInterrupted && failing.isAnywhere) std::ranges::replace(allowed, kCannot, kCancelled);
    if (std::ranges::find(allowed, code) == allowed.end())
      Fail("the answer: expected " + check::Text(allowed) + ", seen " + CodeText(code));
    return code;
  }

  void Send(const char* what, const std::function<ResultCode(Module&)>& message,
            ResultCode expected = kSuccess) {
    const Trying trying(what);
    const size_t alerts = person.alerts.size();
    const bool wasLoaded = module.IsLoaded();
    const ResultCode code = Play(false, expected, [&] { return message(module); });
    if (!module.IsLoaded() && (!wasLoaded || Failed(code))) return;
    const size_t shown = person.alerts.size() - alerts;
    // A report can fail too.
    const bool canBeLost = isStruck && (failing.isAnywhere || Failed(expected));
    if (!canBeLost || shown > 1) Expect("alerts", shown, size_t{Failed(code)});
  }

  /// Requests the dialog and makes the gestures in it.
  void Show(const char* gestures, ResultCode expected = kSuccess, bool sizeUnavailable = false) {
    if (!module.IsLoaded() || !module.Globals() || !host.Suites().Find<MosaicSuite>()) {
      asExpected = false;
      return;
    }
    const Trying trying("a dialog");
    CallerData data;
    data.record.reserved11 = data.record.reserved28 = 0x5A;
    data.record.sizeUnavailable = sizeUnavailable;
    const CallerData given = data;
    nrvui::gestures::ScriptedPresenter presenter(
        nrvui::gestures::GestureScript::Parse(gestures, "session"));
    const nrvui::ui::InstalledPresenter installed(presenter);
    const ResultCode code = Play(true, expected, [&] {
      const ResultCode answer = RunDialog(data);
      isInterrupted = presenter.Error().has_value();
      return answer;
    });
    if (code != kSuccess) return ExpectFields(data, given);
    Expect("record.tilesAcrossCopy", data.record.tilesAcrossCopy, data.record.tilesAcross);
    Expect("record.reserved28", data.record.reserved28, 0);
    Expect("record.reserved11", data.record.reserved11, 0x5A);
    Expect("state.noOriginalSize", data.state.noOriginalSize, sizeUnavailable);
  }

  bool asExpected = true;
  // Of the call in progress, or the last one:
  size_t struckBefore = 0;              // how often something had failed before
  bool isStruck = false;                // whether something has failed since
  bool isReporting = false;             // whether that was after the request of the needed suite
  bool hasAskedForNeededSuite = false;  // whether the module has requested it
  bool isInterrupted = false;           // whether the dialog's gestures could not be made
};

}  // namespace check
