#pragma once

#include <algorithm>
#include <functional>
#include <vector>

#include "check/checked_module.h"
#include "check/random.h"
#include "platform/nrvui/scripted_presenter.h"
#include "platform/standin/host_codes.h"

namespace check {

/// A host that goes on whatever happens. Whatever is disturbed on the way, a session goes on and
/// checks what must hold after each step: an answer that a caller may see, its failure shown to the
/// user, the caller's data untouched without success. Its sequences can be run again.
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
    constexpr const char* kNeededSuite = "VX Real Math Suite";
    const size_t alertsBefore = person.alerts.size();
    host.Suites().SetAbsent(kNeededSuite);
    Send("start up", &Module::StartUp, standin::kSuiteNotFound);
    host.Lists().Replace(standin::ListOwner::kPlugin, 16050, {{1, "none"}, {2, "Reason: %s."}});
    Send("start up", &Module::StartUp, standin::kSuiteNotFound);
    host.Lists().Replace(standin::ListOwner::kHost, 257, {});
    Send("start up", &Module::StartUp, standin::kSuiteNotFound);
    Send("message to nobody", &Module::About);

    host.Suites().SetAbsent(kNeededSuite, false);
    Send("start up", &Module::StartUp);
    Send("unload", &Module::Unload);
    host.Suites().SetAbsent(kNeededSuite);
    Send("reload", kReload, module.Globals() ? standin::kSuiteNotFound : kSuccess);
    Send("message without suites", &Module::About);
    Show("click MosaicUseRatioButton\nkey Return");
    host.Suites().SetAbsent(kNeededSuite, false);
    Send("reload", kReload);
    host.Suites().SetAbsent("VX User Interface Main Suite");
    Show("key Return", kCannot);
    host.Suites().SetAbsent("VX User Interface Main Suite", false);
    Send("shut down", &Module::ShutDown);
    if (person.alerts.size() != alertsBefore + 4) asExpected = false;
  }

  /// Whether everything so far went as it does when nothing is disturbed.
  bool WentAsExpected() const { return asExpected; }
  /// Ends all disturbances; what went wrong before is forgotten.
  void Restore() {
    host.Operations().ClearFaults();
    asExpected = true;
  }

  /// What a disturbed message may answer with.
  std::vector<ResultCode> allowed;
  /// Told when a call of the module begins and when it has ended.
  std::function<void(bool isInside)> onCall = [](bool) {};

 private:
  using Module = standin::Module;
  static constexpr auto kReload = [](Module& module) { return module.Reload(); };

  ResultCode Call(const std::function<ResultCode()>& call) try {
    onCall(true);
    const ResultCode code = call();
    onCall(false);
    return code;
  } catch (...) {
    onCall(false);
    // Only a host that cannot load the code has an excuse.
    if (module.IsLoaded()) Fail("an exception has left the module");
    return kOutOfMemory;
  }

  void Send(const char* step, const std::function<ResultCode(Module&)>& message,
            ResultCode expected = kSuccess) {
    const Trying trying(step);
    const size_t alerts = person.alerts.size();
    const ResultCode code = Call([&] { return message(module); });
    if (code == expected) return;
    asExpected = false;
    if (!module.IsLoaded()) return;
    if (std::ranges::find(allowed, code) == allowed.end()) Fail("answers " + CodeText(code));
    Expect("alerts", person.alerts.size(), alerts + Failed(code));
  }

  /// Asks for the dialog, in which a person makes the gestures.
  void Show(const char* gestures, ResultCode expected = kSuccess, bool sizeUnavailable = false) {
    if (!module.IsLoaded() || !module.Globals() || !host.Suites().Find<MosaicSuite>()) {
      asExpected = false;
      return;
    }
    const Trying trying("a dialog");
    MosaicParameters record = SampleRecord();
    record.reserved11 = 0x5A;
    record.reserved28 = 0x5A;
    record.sizeUnavailable = sizeUnavailable;
    MosaicDialogState state{};
    const std::string given = Bytes(record) + Bytes(state);

    nrvui::gestures::ScriptedPresenter presenter(
        nrvui::gestures::GestureScript::Parse(gestures, "session"));
    const nrvui::ui::InstalledPresenter installed(presenter);
    const ResultCode code = Call([&] { return RunDialog(record, state); });
    if (code != expected) {
      asExpected = false;
      // A dialog whose gestures could not be played is cancelled.
      Expect("the answer", code, presenter.Error() ? kCancelled : kCannot);
    }
    if (code == kSuccess) {
      Expect("the copy of the count", record.tilesAcrossCopy, record.tilesAcross);
      Expect("what OK clears", record.reserved28, 0);
      Expect("what passes through", record.reserved11, 0x5A);
      Expect("whether there is no size", state.noOriginalSize, sizeUnavailable);
    } else {
      ExpectBytes("record and state", Bytes(record) + Bytes(state), given);
    }
  }

  bool asExpected = true;
};

}  // namespace check
