#pragma once

#include "platform/nrvui/ui_dialog.h"

namespace vx::ui {

/// A modal dialog that pops up from something else.
class NRV_EXPORT UI_PopupModalDialog : public nrvui::ui::UI_Dialog {
 public:
  using UI_Dialog::UI_Dialog;
  ~UI_PopupModalDialog() override;

  /// Asks MayPopUp, and cancels unless it agrees; tells OnPopUp before and OnDismiss after the run,
  /// also when the run throws.
  void RunModal() override;

  virtual bool MayPopUp();
  virtual void OnPopUp();
  virtual void OnDismiss() noexcept;

 protected:
  void Run(nrvui::ui::DialogPresenter& presenter) override;
};

}  // namespace vx::ui
