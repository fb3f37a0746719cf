#pragma once

#include <QDialog>
#include <QEventLoop>
#include <QVBoxLayout>
#include <functional>
#include <memory>
#include <optional>

#include "platform/nrvui/ui_node.h"
#include "platform/qt/dialog_content.h"
#include "platform/qt/dialog_run.h"

namespace qtui {

/// The window of one modal run. Its size is the dialog's content size, both ways: what the fonts
/// need goes to the dialog's layout node, what a person makes of the window to the dialog, and the
/// window follows the dialog. On a screen that is too small its content scrolls.
class DialogWindow final : public QDialog, private nrvui::ui::NodeObserver {
 public:
  /// Qt::NonModal leaves input to other windows; they then block what must not be used meanwhile.
  DialogWindow(DialogRun& modalRun, QWidget* parent, Qt::WindowModality modality);
  ~DialogWindow() override;

  /// Called once, from the event loop, after the window was painted for the first time.
  void WhenPainted(std::function<void()> painted) { whenPainted = std::move(painted); }
  /// Says in the message line what follows from the present values.
  void SetReadOut(const ReadOut& text);
  /// A rectangle of the screen that the dialog opens beside, where there is room, if the toolkit
  /// places it; an empty one means nothing.
  void OpenBeside(const QRect& rect) { beside = rect; }
  /// The place of the frame, which counts before the rectangle.
  void OpenAt(const std::optional<QPoint>& position) { wantedPosition = position; }
  /// Whether the user has moved the window since it opened.
  bool WasMoved() const;
  /// Shows the window until the run is over.
  void RunModal();

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

  void Build();
  void RebuildLater();
  void End();
  void FitContent();
  void FollowDialog();
  void Place();
  /// Moves the window to a place, or as near to it as its frame stays in a room of the screen.
  void MoveWithin(const QRect& room, QPoint wanted);
  void PlaceBeside();
  QSize Limited(QSize size) const;
  QSize SizeFor(nrvcore::geom::PointT<float> contentSize) const;
  bool HandleKey(const QKeyEvent& event);

  DialogRun& run;
  nrvui::ui::UI_Dialog& dialog;
  QVBoxLayout& column;
  QWidget* pane = nullptr;
  std::unique_ptr<DialogContent> content;
  QEventLoop* loop = nullptr;
  std::function<void()> whenPainted;
  QSize natural;
  ReadOut readOut;
  QRect beside;
  std::optional<QPoint> wantedPosition;
  std::optional<QPoint> placedAt;  // by this class and the window manager; nothing before painting
  bool isFollowing = false;
};

}  // namespace qtui
