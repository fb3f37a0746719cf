#pragma once

#include <QDialog>
#include <QFuture>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>

/// Waits for work on another thread. The window is redrawn meanwhile but takes no input; work that
/// takes longer than half a second disables the window and shows this dialog. Created for one piece
/// of work, on the user-interface thread.
class WorkDialog final : public QDialog {
 public:
  /// `text` says what is done. Without `steps` the bar shows that something is done, but not how
  /// far.
  WorkDialog(QWidget& window, const QString& text, int steps);
  ~WorkDialog() override;

  /// Returns when the work has finished. Cancels it on Cancel, on Escape, when the dialog or the
  /// window is closed and when the program is ending. Throws the work's exception.
  void WaitFor(const QFuture<void>& work);

  /// Whether the window waits for work, be the dialog visible or not.
  static bool IsOver(const QWidget& window);

  /// Cancels the work. The dialog stays open until the work has stopped.
  void reject() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShowProgress();

  QWidget& window;
  QPointer<QWidget> focus;  // the window's, before it was disabled
  QLabel* const label;
  QProgressBar* const bar;
  QPushButton* const cancel;
};
