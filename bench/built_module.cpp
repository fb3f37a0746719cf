#include "bench/built_module.h"

#include <stdexcept>

#include "platform/nrvui/ui_dialog.h"

namespace bench {

BuiltModule::BuiltModule() : module(host, MODULE_FILE), image(MODULE_FILE) {
  if (Failed(module.StartUp())) throw std::runtime_error("the module does not start");
}

PluginMessage BuiltModule::Message() {
  return {nullptr, module.Ref(), module.Globals(), host.BasicSuite()};
}

double BuiltModule::RunDialog(nrvui::ui::DialogPresenter& presenter) {
  const nrvui::ui::InstalledPresenter installed(presenter);
  const standin::HeldSuite<MosaicSuite> suite(host);
  if (!suite) throw std::runtime_error("the module offers no dialog");
  MosaicDialogState state{};
  MosaicParameters params{};
  params.tilesAcross = 40;
  params.tilesDown = 30;
  params.boundsRight = 300;
  params.boundsBottom = 200;
  MosaicParameters* record = &params;
  const double start = ThreadTime();
  if (suite->RunMosaicDialog(&state, &record) != ResultCode::kCancelled) {
    throw std::runtime_error("the dialog could not be shown");
  }
  return start;
}

void ImpatientPerson::Present(nrvui::ui::UI_Dialog& dialog) {
  readyAt = ThreadTime();
  dialog.SetResponse(nrvui::ui::kCancelResponse);
}

}  // namespace bench
