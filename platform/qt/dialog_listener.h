#pragma once

#include <QString>
#include <QWidget>
#include <optional>

#include "platform/nrvui/ui_dialog.h"
#include "platform/nrvui/ui_edits.h"

namespace qtui {

/// What a dialog's present values will lead to, in one sentence by the dialog's caller.
struct Summary {
  QString text;  // may be empty
  bool isWarning = false;
};

/// A number that the user has typed but not entered: the field is still being edited, and its node
/// holds the previous number. The number is within the field's bounds.
struct PendingEntry {
  const nrvui::controls::UI_NumberEdit* field;
  double number;
};

/// Follows the dialogs of a QtPresenter, which calls it on the user-interface thread. An exception
/// closes the dialog and leaves QtPresenter::Present.
class DialogListener {
 public:
  /// Called before the dialog's window is created; may set the dialog's controls.
  virtual void DialogOpening(nrvui::ui::UI_Dialog&) {}
  /// Called from the event loop after the window's first paint. The window may be closed.
  virtual void DialogPainted(QWidget& /*window*/) {}
  /// Called when the dialog opens, after each gesture that leaves it open, and 300 ms after the
  /// last edit of a field's text; `pending` is then the number being typed. Returns the summary for
  /// the message line, or nothing to leave it unchanged.
  virtual std::optional<Summary> DialogChanged(const nrvui::ui::UI_Dialog&,
                                               const std::optional<PendingEntry>& /*pending*/) {
    return std::nullopt;
  }

 protected:
  ~DialogListener() = default;
};

}  // namespace qtui
