#include "mosaic/run_mosaic_dialog.h"

#include "mosaic/tesserae_ui.h"
#include "mosaic/tesserae_ui_dialog.h"

namespace {

/// Returns the operation's code, or kCannot if it throws.
template <class Operation>
ResultCode OrCannot(Operation operation) noexcept {
  try {
    return operation();
  } catch (...) {
    return ResultCode::kCannot;
  }
}

ResultCode RunAndHandBack(TesseraeUIDialog& dialog, MosaicDialogState* state,
                          MosaicParameters** params) {
  dialog.RunModal();
  if (dialog.GetResponse() != nrvui::ui::kOkResponse) return ResultCode::kCancelled;
  *state = dialog.State();
  **params = dialog.Parameters();
  return ResultCode::kSuccess;
}

}  // namespace

ResultCode RunMosaicDialog(MosaicDialogState* state, MosaicParameters** params) {
  if (!currentPlugin || !state || !params || !*params) return ResultCode::kCannot;
  return OrCannot([&] {
    const PluginRef pluginRef = currentPlugin->Reference();
    auto* dialog = new TesseraeUIDialog(params, *state, pluginRef);
    intrusive_ptr_add_ref(dialog);
    const ResultCode result = OrCannot([&] { return RunAndHandBack(*dialog, state, params); });
    // Not a smart pointer: its destructor is noexcept, and the dialog's destructor may throw.
    intrusive_ptr_release(dialog);
    return result;
  });
}
