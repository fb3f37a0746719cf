#pragma once

#include "platform/nrvcore/export.h"

namespace nrvui::ui {

class UI_Dialog;

/// Shows dialogs to the user, or plays a script in them. RunModal calls the installed presenter, on
/// the user-interface thread.
class DialogPresenter {
 public:
  /// Returns when the dialog has a response; returning earlier cancels the dialog. An exception
  /// ends the modal run and reaches the caller of RunModal.
  virtual void Present(UI_Dialog& dialog) = 0;

 protected:
  ~DialogPresenter() = default;
};

/// Installs a presenter, which must outlive this object. The destructor reinstalls the previous
/// one.
class NRV_EXPORT InstalledPresenter {
 public:
  explicit InstalledPresenter(DialogPresenter& presenter);
  InstalledPresenter(const InstalledPresenter&) = delete;
  InstalledPresenter& operator=(const InstalledPresenter&) = delete;
  ~InstalledPresenter();

  /// The installed presenter, or null.
  static DialogPresenter* Current();

 private:
  DialogPresenter* previous;
};

}  // namespace nrvui::ui
