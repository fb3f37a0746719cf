#include "studio/mosaic_caller.h"

#include <QCoreApplication>

#include "platform/standin/held_suite.h"
#include "studio/studio_error.h"

namespace {

std::filesystem::path ModulePath() {
  const std::filesystem::path programs = QCoreApplication::applicationDirPath().toStdString();
  return programs.parent_path() / "plugins" / TESSERAE_MODULE_FILE;
}

std::unique_ptr<standin::Module> Load(standin::Host& host) try {
  return std::make_unique<standin::Module>(host, ModulePath());
} catch (const standin::LoadError& error) {
  throw StudioError("the module cannot be loaded: " + QString(error.what()));
}

[[noreturn]] void Fail(const char* what, const std::string& reason) {
  throw StudioError(QString(what) + ": " + QString::fromStdString(reason));
}

}  // namespace

MosaicCaller::MosaicCaller(standin::UserInterface& userInterface)
    : host(userInterface), module(Load(host)) {
  const ResultCode code = module->StartUp();
  if (Failed(code)) Fail("the module cannot be started", Reason(code));
}

MosaicCaller::Answer MosaicCaller::Ask(MosaicParameters& params, MosaicDialogState& state) {
  const standin::HeldSuite<MosaicSuite> suite(host);
  if (!suite) Fail("the module offers no dialog", Reason(suite.Code()));

  MosaicParameters* record = &params;
  const ResultCode code = suite->RunMosaicDialog(&state, &record);
  if (code == ResultCode::kSuccess) return Answer::kOk;
  if (code == ResultCode::kCancelled) return Answer::kCancelled;
  Fail("the dialog cannot be shown", Reason(code));
}

QString MosaicCaller::ModuleName() const {
  return QString::fromStdString(module->Ref()->name);
}

void MosaicCaller::ShowAbout() {
  const ResultCode code = module->About();
  if (Failed(code)) Fail("the module says nothing about itself", Reason(code));
}

void MosaicCaller::Close() {
  const ResultCode code = module->ShutDown();
  if (Failed(code)) Fail("the module cannot be shut down", Reason(code));
  module.reset();
  const std::vector<std::string> leftovers = host.Leftovers();
  if (!leftovers.empty()) Fail("the module gave back too little", leftovers.front());
}

/// What the host found wrong on the way says more than the code.
std::string MosaicCaller::Reason(ResultCode code) const {
  if (!host.ResourceProblems().empty()) return host.ResourceProblems().back();
  auto number = uint32_t(code);
  std::string text;
  for (int i = 0; i < 4; ++i, number <<= 8) text += char(number >> 24);
  const bool isText = std::all_of(text.begin(), text.end(), [](char c) { return c > 31; });
  return isText ? "'" + text + "'" : "code " + std::to_string(int32_t(code));
}
