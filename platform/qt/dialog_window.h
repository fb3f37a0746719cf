#pragma once

#include <QDialog>
#include <QEventLoop>
#include <QVBoxLayout>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/nrvui/ui_node.h"
#include "platform/qt/dialog_content.h"
#include "platform/qt/dialog_listener.h"
#include "platform/qt/dialog_run.h"

namespace qtui {

/// The window of one modal run. Its size and the dialog's content size are kept equal: the size
/// that the fonts need is set on the dialog's layout node, the user's resizing on the dialog, and
/// the window resizes with the dialog. Its content scrolls on a screen that is too small.
class DialogWindow final : public QDialog,
                           private DialogRun::Listener,
                           private nrvui::ui::NodeObserver {
 public:
  /// Run and listeners must outlive the window. With Qt::NonModal the other windows get input and
  /// must disable what may not be used while the dialog is open.
  DialogWindow(DialogRun& modalRun, const std::vector<DialogListener*>& dialogListeners,
               QWidget* parent, Qt::WindowModality modality);
  ~DialogWindow() override;

  /// A rectangle of the screen. A dialog without a position of its own opens beside it if there is
  /// room. Empty for none.
  void OpenBeside(const QRect& rect) { beside = rect; }
  /// The position of the frame, which takes precedence over the rectangle.
  void OpenAt(const std::optional<QPoint>& position) { wantedPosition = position; }
  /// Whether the user has moved the window since it opened.
  bool WasMoved() const;
  /// Shows the window until the run is over. Calls `painted` once, from the event loop, after the
  /// first paint; an exception ends the run.
  void RunModal(std::function<void()> painted);

  const DialogContent& Content() const { return *content; }
  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void NodeChanged(nrvui::ui::UI_Node& node) override;
  void RunFailed() override { End(); }
  void ValuesChanged() override;

  void Build();
  void End();
  void FitContent();
  void SyncSize();
  void Place();
  /// Moves the window to `wanted`, clamped so that its frame stays on one screen.
  void MoveOnScreen(QPoint wanted);
  /// The same within a rectangle.
  void MoveWithin(const QRect& room, QPoint wanted);
  void PlaceBeside();
  /// Limits a size to the screen, with room for the scroll bars that this makes necessary.
  QSize Limited(QSize size) const;
  QSize SizeFor(nrvcore::geom::PointT<float> contentSize) const;
  bool HandleKey(const QKeyEvent& event);

  DialogRun& run;
  const std::vector<DialogListener*>& listeners;
  nrvui::ui::UI_Dialog& dialog;
  QVBoxLayout& column;
  QWidget* const pane;
  std::unique_ptr<DialogContent> content;
  QEventLoop* loop = nullptr;
  std::function<void()> whenPainted;
  QSize neededSize;  // by the content
  QRect beside;
  std::optional<QPoint> wantedPosition;
  std::optional<QPoint> placedAt;  // by this class and the window manager; empty before painting
  bool isSyncingSize = false;
};

}  // namespace qtui
