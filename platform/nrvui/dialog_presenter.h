#pragma once

#include "platform/nrvcore/export.h"

namespace nrvui::ui {

class UI_Dialog;

/// Shows a dialog to the user, or plays a script on it. RunModal calls the installed presenter, on
/// the user-interface thread.
class DialogPresenter {
 public:
  /// Returns when the dialog has a response. Returning without one cancels the dialog; an
  /// exception ends the modal run and reaches its caller.
  virtual void Present(UI_Dialog& dialog) = 0;

 protected:
  ~DialogPresenter() = default;
};

/// Installs a presenter, which must outlive it; its destructor reinstalls the previous one.
class NRV_EXPORT InstalledPresenter {
 public:
  explicit InstalledPresenter(DialogPresenter& presenter);
  InstalledPresenter(const InstalledPresenter&) = delete;
  InstalledPresenter& operator=(const InstalledPresenter&) = delete;
  ~InstalledPresenter();

  /// Null when none is installed.
  static DialogPresenter* Current();

 private:
  DialogPresenter* former;
};

}  // namespace nrvui::ui
