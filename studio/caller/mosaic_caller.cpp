#include "studio/caller/mosaic_caller.h"

#include <QCoreApplication>

#include "platform/standin/held_suite.h"
#include "studio/base/studio_error.h"

namespace {

std::filesystem::path ModulePath() {
  const std::filesystem::path programs = QCoreApplication::applicationDirPath().toStdString();
  return programs.parent_path() / "plugins" / TESSERAE_MODULE_FILE;
}

[[noreturn]] void Fail(const char* key, const std::string& reason) {
  throw StudioError(key, QString::fromStdString(reason));
}

std::unique_ptr<standin::Module> Load(standin::Host& host) try {
  return std::make_unique<standin::Module>(host, ModulePath());
} catch (const standin::LoadError& error) {
  Fail("$$$/Studio/Module/NotLoaded=the module cannot be loaded: %1", error.what());
}

}  // namespace

MosaicCaller::MosaicCaller(standin::UserInterface& userInterface)
    : host(userInterface), module(Load(host)) {
  const ResultCode code = module->StartUp();
  if (Failed(code))
    Fail("$$$/Studio/Module/NotStarted=the module cannot be started: %1", Reason(code));
}

MosaicCaller::Answer MosaicCaller::Ask(MosaicParameters& params, MosaicDialogState& state) {
  host.ForgetResourceProblems();
  const standin::HeldSuite<MosaicSuite> suite(host);
  if (!suite)
    Fail("$$$/Studio/Module/NoDialog=the module offers no dialog: %1", Reason(suite.Code()));

  MosaicParameters* record = &params;
  const ResultCode code = suite->RunMosaicDialog(&state, &record);
  if (code == ResultCode::kSuccess) return Answer::kOk;
  if (code == ResultCode::kCancelled) return Answer::kCancelled;
  Fail("$$$/Studio/Module/NotShown=the dialog cannot be shown: %1", Reason(code));
}

QString MosaicCaller::ModuleName() const {
  return QString::fromStdString(module->Ref()->name);
}

void MosaicCaller::ShowAbout() {
  host.ForgetResourceProblems();
  const ResultCode code = module->About();
  if (Failed(code))
    Fail("$$$/Studio/Module/NoAbout=the module says nothing about itself: %1", Reason(code));
}

void MosaicCaller::Close() {
  host.ForgetResourceProblems();
  const ResultCode code = module->ShutDown();
  if (Failed(code))
    Fail("$$$/Studio/Module/NotShutDown=the module cannot be shut down: %1", Reason(code));
  module.reset();
  const std::vector<std::string> leftovers = host.Leftovers();
  if (!leftovers.empty())
    Fail("$$$/Studio/Module/LeftOver=the module gave back too little: %1", leftovers.front());
}

/// What the host found wrong during the call says more than the code.
std::string MosaicCaller::Reason(ResultCode code) const {
  if (!host.ResourceProblems().empty()) return host.ResourceProblems().back();
  auto number = uint32_t(code);
  std::string text;
  for (int i = 0; i < 4; ++i, number <<= 8) text += char(number >> 24);
  const bool isText = std::all_of(text.begin(), text.end(), [](char c) { return c > 31; });
  if (isText) return "'" + text + "'";
  const QString digits = QString::number(int32_t(code));
  return Text("$$$/Studio/Module/Code=code %1", digits).toStdString();
}
