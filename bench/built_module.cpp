#include "bench/built_module.h"

#include <stdexcept>

#include "platform/nrvui/ui_dialog.h"

namespace bench {

BuiltModule::BuiltModule() : HostedModule(MODULE_FILE), image(MODULE_FILE) {
  if (Failed(module.StartUp())) throw std::runtime_error("the module does not start");
}

PluginMessage BuiltModule::Message() {
  return {nullptr, module.Ref(), module.Globals(), host.BasicSuite()};
}

double BuiltModule::RunDialog(nrvui::ui::DialogPresenter& presenter) {
  const nrvui::ui::InstalledPresenter installed(presenter);
  MosaicDialogState state{};
  MosaicParameters record = SampleRecord();
  const double start = ThreadTime();
  if (HostedModule::RunDialog(record, state) != ResultCode::kCancelled) {
    throw std::runtime_error("the dialog could not be shown");
  }
  return start;
}

void ImpatientPerson::Present(nrvui::ui::UI_Dialog& dialog) {
  readyAt = ThreadTime();
  dialog.SetResponse(nrvui::ui::kCancelResponse);
}

}  // namespace bench
