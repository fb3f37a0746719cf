#include "studio/caller/mosaic_caller.h"

#include <algorithm>
#include <utility>

#include "studio/base/studio_error.h"

namespace {

[[noreturn]] void Fail(const char* key, const std::string& reason) {
  throw StudioError(key, QString::fromStdString(reason));
}

std::unique_ptr<standin::Module> Load(standin::Host& host) {
  try {
    return std::make_unique<standin::Module>(
        host, standin::ResourceFolders::OfProgram().plugin / TESSERAE_MODULE_FILE);
  } catch (const standin::LoadError& error) {
    Fail("$$$/Studio/Module/NotLoaded=the module cannot be loaded: %1", error.what());
  }
}

}  // namespace

MosaicCaller::MosaicCaller(standin::UserInterface& userInterface)
    : screen(userInterface), host(*this), module(Load(host)) {
  EndCall(module->StartUp(), "$$$/Studio/Module/NotStarted=the module cannot be started: %1");
}

bool MosaicCaller::Ask(MosaicParameters& params, MosaicDialogState& state) {
  BeginCall();
  const standin::ScopedSuite<MosaicSuite> suite(host.Suites());
  if (!suite)
    Fail("$$$/Studio/Module/NoDialog=the module offers no dialog: %1", Reason(suite.Code()));

  MosaicParameters* record = &params;
  const ResultCode code = suite->RunMosaicDialog(&state, &record);
  const bool isCancelled = code == ResultCode::kCancelled;
  EndCall(isCancelled ? ResultCode::kSuccess : code,
          "$$$/Studio/Module/NotShown=the dialog cannot be shown: %1");
  return !isCancelled;
}

void MosaicCaller::ShowAbout() {
  BeginCall();
  EndCall(module->About(),
          "$$$/Studio/Module/NoAbout=the module gives no information about itself: %1");
}

void MosaicCaller::Close() {
  BeginCall();
  EndCall(module->ShutDown(), "$$$/Studio/Module/NotShutDown=the module cannot be shut down: %1");
  module.reset();
  const std::vector<std::string> leftovers = host.Leftovers();
  if (!leftovers.empty())
    Fail("$$$/Studio/Module/LeftOver=the module did not release everything: %1", leftovers.front());
}

void MosaicCaller::BeginCall() {
  alerts.clear();
  host.ClearResourceProblems();
}

void MosaicCaller::EndCall(ResultCode code, const char* key) {
  if (Failed(code)) Fail(key, Reason(code));
  for (const std::string& alert : std::exchange(alerts, {})) screen.ShowAlert(alert);
}

/// The host's problems and alerts during the call, which are more specific than the code; the code
/// if there are none.
std::string MosaicCaller::Reason(ResultCode code) const {
  std::vector<std::string> reasons = alerts;
  if (!host.ResourceProblems().empty()) {
    reasons.insert(reasons.begin(), host.ResourceProblems().back());
  }
  if (!reasons.empty()) {
    std::string text;
    for (const std::string& reason : reasons) text += (text.empty() ? "" : "; ") + reason;
    return text;
  }
  auto number = uint32_t(code);
  std::string text;
  for (int i = 0; i < 4; ++i, number <<= 8) text += char(number >> 24);
  const bool isText = std::all_of(text.begin(), text.end(), [](char c) { return c > 31; });
  if (isText) return "'" + text + "'";
  const QString digits = QString::number(int32_t(code));
  return Text("$$$/Studio/Module/Code=code %1", digits).toStdString();
}
