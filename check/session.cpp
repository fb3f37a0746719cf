#include "check/session.h"

#include <algorithm>

#include "check/findings.h"
#include "check/random.h"
#include "platform/nrvui/scripted_presenter.h"
#include "platform/standin/host_codes.h"

namespace check {

using nrvui::gestures::GestureScript;
using nrvui::gestures::ScriptedPresenter;
using standin::Module;

namespace {

constexpr const char* kNeededSuite = "VX Real Math Suite";
constexpr auto kReload = [](Module& module) { return module.Reload(); };

}  // namespace

void Session::RunLifeCycle() {
  Send("start up", &Module::StartUp);
  Send("about", &Module::About);
  Send("go", [](Module& to) { return to.Send("VX Menu", "VX Go"); });
  for (const char* type : {"VX Application Started Notifier", "VX Other Notifier"})
    Send(type, [&](Module& to) { return to.Notify(type); });
  Show(
      {"enter HorizontalCountTxt 12\nclick MosaicUseRatioButton\nclick GrayRadio\n"
       "resize 600 500\nkey Return",
       kSuccess});
  Send("unload", &Module::Unload);
  Send("reload", kReload);
  Show(
      {"enter NewWidthTxt 1 in\nclick VerticalRadio\nclick MosaicUseRatioButton\n"
       "click DeleteRasterChk\nkey Escape",
       kCancelled});
  Show({"click UsePercentChk\nenter NewWidthTxt 50\nclick okButton", kSuccess});
  Show({"enter VerticalCountTxt 7\nclose", kCancelled, true});
  Show({"enter NewHeightTxt 25 %\nkey Return", kSuccess, true});
  Send("shut down", &Module::ShutDown);
}

void Session::RunFailures() {
  const size_t alertsBefore = person.alerts.size();
  host.Suites().SetAbsent(kNeededSuite);
  Send("start up", &Module::StartUp, standin::kSuiteNotFound);
  standin::StringList ownTexts;
  ownTexts.Set(1, "none");
  ownTexts.Set(2, "Reason: %s.");
  host.Lists().Replace(standin::ListOwner::kPlugin, 16050, ownTexts);
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
  Show({"click MosaicUseRatioButton\nkey Return", kSuccess});
  host.Suites().SetAbsent(kNeededSuite, false);
  Send("reload", kReload);
  host.Suites().SetAbsent("VX User Interface Main Suite");
  Show({"key Return", kCannot});
  host.Suites().SetAbsent("VX User Interface Main Suite", false);
  Send("shut down", &Module::ShutDown);
  if (person.alerts.size() != alertsBefore + 4) asExpected = false;
}

void Session::Restore() {
  host.Operations().DisturbNothing();
  asExpected = true;
}

ResultCode Session::Call(const std::function<ResultCode()>& call) try {
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

void Session::Send(const char* step, const Message& message, ResultCode expected) {
  const Trying trying(step);
  const size_t alerts = person.alerts.size();
  const ResultCode code = Call([&] { return message(module); });
  if (code == expected) return;
  asExpected = false;
  if (!module.IsLoaded()) return;
  if (std::ranges::find(allowed, code) == allowed.end()) Fail("answers " + CodeText(code));
  Expect("alerts", person.alerts.size(), alerts + Failed(code));
}

void Session::Show(const DialogRun& run) {
  if (!module.IsLoaded() || !module.Globals() || !host.Suites().Find<MosaicSuite>()) {
    asExpected = false;
    return;
  }
  const Trying trying("a dialog");
  MosaicParameters record = SampleRecord();
  record.reserved11 = 0x5A;
  record.reserved28 = 0x5A;
  record.sizeUnavailable = run.sizeUnavailable;
  MosaicDialogState state{};
  const std::string given = Bytes(record) + Bytes(state);

  ScriptedPresenter presenter(GestureScript::Parse(run.gestures, "session"));
  const nrvui::ui::InstalledPresenter installed(presenter);
  const ResultCode code = Call([&] { return RunDialog(record, state); });
  if (code != run.expected) {
    asExpected = false;
    // A dialog whose gestures could not be played is cancelled.
    Expect("the answer", code, presenter.Error() ? kCancelled : kCannot);
  }
  if (code == kSuccess) {
    Expect("the copy of the count", record.tilesAcrossCopy, record.tilesAcross);
    Expect("what OK clears", record.reserved28, 0);
    Expect("what passes through", record.reserved11, 0x5A);
    Expect("whether there is no size", state.noOriginalSize, run.sizeUnavailable);
  } else {
    ExpectBytes("record and state", Bytes(record) + Bytes(state), given);
  }
}

}  // namespace check
