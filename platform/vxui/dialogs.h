#pragma once

#include "platform/nrvui/ui_dialog.h"

namespace vx::ui {

/// A modal dialog that pops up from another element.
class NRV_EXPORT UI_PopupModalDialog : public nrvui::ui::UI_Dialog {
 public:
  using UI_Dialog::UI_Dialog;
  ~UI_PopupModalDialog() override;

  void RunModal() override;

  /// Called first by RunModal, which cancels the dialog if it returns false.
  virtual bool MayPopUp();
  /// Called before the run; an exception ends RunModal.
  virtual void OnPopUp();
  /// Called after the run if OnPopUp returned, also when the run throws.
  virtual void OnDismiss() noexcept;
};

/// A dialog that floats above the host's documents.
class NRV_EXPORT UI_FloatingDialog : public nrvui::ui::UI_Dialog {
 public:
  using UI_Dialog::UI_Dialog;
  ~UI_FloatingDialog() override;
};

}  // namespace vx::ui
