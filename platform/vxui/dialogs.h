#pragma once

#include "platform/nrvui/ui_dialog.h"

namespace vx::ui {

/// A modal dialog that pops up from something else.
class NRV_EXPORT UI_PopupModalDialog : public nrvui::ui::UI_Dialog {
 public:
  using UI_Dialog::UI_Dialog;
  ~UI_PopupModalDialog() override;

  void RunModal() override;

  /// A run asks this first, and is cancelled unless it agrees.
  virtual bool MayPopUp();
  /// Called before a run; what it throws ends it.
  virtual void OnPopUp();
  /// Called after a run that OnPopUp let begin, also when the run throws.
  virtual void OnDismiss() noexcept;
};

/// A dialog that floats above the host's documents.
class NRV_EXPORT UI_FloatingDialog : public nrvui::ui::UI_Dialog {
 public:
  using UI_Dialog::UI_Dialog;
  ~UI_FloatingDialog() override;
};

}  // namespace vx::ui
