#pragma once

#include <QWidget>
#include <optional>

#include "platform/nrvui/ui_dialog.h"
#include "platform/qt/message_line.h"
#include "platform/qt/pending_entry.h"

namespace qtui {

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
