#pragma once

#include <algorithm>
#include <cstring>
#include <functional>
#include <optional>

#include "check/checked_module.h"
#include "platform/nrvui/scripted_presenter.h"
#include "platform/standin/host_codes.h"
#include "testkit/random.h"

namespace check {

/// What a message or a dialog answers in which an operation of the host fails.
enum class Answer {
  kUnnoticed,  // as if it had not failed
  kItsCode,    // the code of the refusal or the exception
  kIsParameter,
  kIsCannot,
  kEither,  // kIsCannot or kUnnoticed
};

/// A call of the host that fails once.
struct HostFault {
  std::string operation;
  size_t call;  // counted from the host's beginning
  ResultCode code;
  Answer inMessage;
  Answer inDialog;
};

/// A host that continues after every failure. Each step is checked: its answer, its alert, and that
/// the caller's data is untouched without success. A step in which nothing fails must succeed.
class Session : public CheckedModule {
 public:
  /// From start-up to shut-down: messages, an unload and a reload, and the dialog confirmed,
  /// cancelled and closed, by lengths and by percentages, with and without a source size.
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

  /// A host that lacks a suite at start-up, at reload and for a dialog, so that the module reports
  /// by each of its texts.
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
    Send("message to nobody", &Module::About);

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

  /// Whether all answers and alerts so far were those of a session without failures.
  bool WentAsExpected() const { return asExpected; }
  /// Ends all failures, and forgets those so far.
  void Restore() {
    host.Operations().ClearFaults();
    fault.reset();
    asExpected = true;
  }

  /// The failure that is in place, if it is one of a call.
  std::optional<HostFault> fault;
  /// For failures that strike anywhere: how often one has struck so far, the answers that a message
  /// may then give, and whether it may also succeed. A dialog answers kCannot.
  std::function<size_t()> strikes = [] { return 0; };
  std::vector<ResultCode> answersWhenStruck;
  bool mayGoUnnoticed = false;
  /// Called when a call of the module begins and when it has ended.
  std::function<void(bool isInside)> onCall = [](bool) {};

 private:
  using Module = standin::Module;
  static constexpr auto kReload = [](Module& module) { return module.Reload(); };
  static constexpr const char* kNeededSuite = "VX Real Math Suite";

  /// One call of the module: its answer, and what failed meanwhile.
  struct Step {
    ResultCode code;
    bool isStruck = false;
    std::optional<Answer> answer{};  // that the contract wants, where a call of the host failed
  };

  Step Play(const std::function<ResultCode()>& call, bool isDialog, ResultCode expected) {
    const size_t struck = strikes();
    const size_t earlier = fault ? host.Operations().Calls(fault->operation) : 0;
    Step step{};
    Calls calls;
    const auto guarded = [&] {
      try {
        onCall(true);
        step.code = call();
        onCall(false);
      } catch (...) {
        onCall(false);
        // Only a host that cannot load the code has an excuse.
        if (module.IsLoaded()) Fail("an exception has left the module");
        step.code = kOutOfMemory;
      }
    };
    if (fault) {
      calls = CallsDuring(guarded);
    } else {
      guarded();
    }
    step.isStruck = strikes() != struck;
    if (fault && earlier < fault->call && host.Operations().Calls(fault->operation) >= fault->call)
      step.answer = isDialog ? fault->inDialog : fault->inMessage;
    // What fails after the message has failed concerns its report only.
    if (step.answer && !isDialog && Failed(expected) && IsReport(calls, fault->call - earlier))
      step.answer = Answer::kUnnoticed;
    return step;
  }

  /// Whether the n-th call of the operation that fails comes after that of the suite that lacks.
  bool IsReport(const Calls& calls, size_t nth) const {
    const std::string lacking = std::string("acquire/") + kNeededSuite;
    for (const std::string& call : calls) {
      if (call == fault->operation && --nth == 0) return false;
      if (call == lacking) return true;
    }
    return true;
  }

  void ExpectAnswer(const Step& step, ResultCode expected,
                    const std::vector<ResultCode>& whenStruck) {
    std::vector<ResultCode> allowed = {expected};
    if (step.isStruck) {
      if (!mayGoUnnoticed) allowed.clear();
      allowed.insert(allowed.end(), whenStruck.begin(), whenStruck.end());
    }
    if (step.answer == Answer::kItsCode) allowed = {fault->code};
    if (step.answer == Answer::kIsParameter) allowed = {kParameter};
    if (step.answer == Answer::kIsCannot) allowed = {kCannot};
    if (step.answer == Answer::kEither) allowed.push_back(kCannot);
    if (step.code != expected) asExpected = false;
    if (std::ranges::find(allowed, step.code) == allowed.end())
      Fail("the answer: expected " + check::Text(allowed) + ", seen " + CodeText(step.code));
  }

  void Send(const char* what, const std::function<ResultCode(Module&)>& message,
            ResultCode expected = kSuccess) {
    const Trying trying(what);
    const size_t alerts = person.alerts.size();
    const bool wasLoaded = module.IsLoaded();
    const Step step = Play([&] { return message(module); }, false, expected);
    if (!module.IsLoaded() && (!wasLoaded || Failed(step.code))) {
      asExpected = false;
      return;
    }
    ExpectAnswer(step, expected, answersWhenStruck);
    const size_t shown = person.alerts.size() - alerts;
    // A report may fail itself.
    if (step.isStruck || (step.answer && Failed(expected))) {
      if (shown > 1) Expect("alerts", shown, 1u);
    } else {
      Expect("alerts", shown, size_t{Failed(step.code)});
    }
  }

  /// Asks for the dialog, in which the gestures are made.
  void Show(const char* gestures, ResultCode expected = kSuccess, bool sizeUnavailable = false) {
    if (!module.IsLoaded() || !module.Globals() || !host.Suites().Find<MosaicSuite>()) {
      asExpected = false;
      return;
    }
    const Trying trying("a dialog");
    CallerData data{SampleRecord(), {}};
    data.record.reserved11 = 0x5A;
    data.record.reserved28 = 0x5A;
    data.record.sizeUnavailable = sizeUnavailable;
    const CallerData given = data;

    nrvui::gestures::ScriptedPresenter presenter(
        nrvui::gestures::GestureScript::Parse(gestures, "session"));
    const nrvui::ui::InstalledPresenter installed(presenter);
    const Step step = Play([&] { return RunDialog(data.record, data.state); }, true, expected);
    // A dialog whose gestures cannot be played is cancelled.
    ExpectAnswer(step, expected,
                 presenter.Error() ? std::vector{kCancelled} : std::vector{kCannot});
    if (step.code == kSuccess) {
      Expect("record.tilesAcrossCopy", data.record.tilesAcrossCopy, data.record.tilesAcross);
      Expect("record.reserved28", data.record.reserved28, 0);
      Expect("record.reserved11", data.record.reserved11, 0x5A);
      Expect("state.noOriginalSize", data.state.noOriginalSize, sizeUnavailable);
    } else {
      ExpectFields(data, given);
    }
  }

  bool asExpected = true;
};

}  // namespace check
