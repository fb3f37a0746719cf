#pragma once

#include <QGraphicsScene>
#include <QGraphicsView>
#include <functional>

#include "studio/mosaic/artwork.h"
#include "studio/window/artboard_item.h"

/// Shows an artwork on its artboard. Zooms with Ctrl and the wheel or with two fingers, moves with
/// the wheel, with the space bar or the middle button held.
class Canvas final : public QGraphicsView {
 public:
  Canvas();

  /// Null shows an empty board. A picture that is new is shown whole; its mosaic takes its place
  /// without moving anything.
  void Show(const ArtworkPtr& artwork);

  /// Where the artwork is seen, in pixels of the screen; empty when it is not.
  QRect ArtOnScreen() const;

  /// Screen units a point: 1 at 100 %.
  double Zoom() const { return transform().m11(); }
  /// Around the middle of what is seen.
  void SetZoom(double zoom);
  void ZoomIn();
  void ZoomOut();
  /// The whole page; it stays whole when the window's size changes, until the zoom is changed.
  void Fit();

  /// A frame says that a picture may be dropped here.
  void SetInviting(bool isInviting);

  /// While true, the picture covers the place of its mosaic.
  void SetComparing(bool isComparing);

  void WhenZoomed(std::function<void()> hook) { zoomed = std::move(hook); }
  /// `hook` is called after each Show with what is shown.
  void WhenShown(std::function<void(const ArtworkPtr&)> hook) { whenShown = std::move(hook); }

 protected:
  void wheelEvent(QWheelEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void drawForeground(QPainter* painter, const QRectF& rect) override;

 private:
  void ShowItem(bool isOther);
  void SetFitted(bool fitted);
  void Scale(double zoom);
  void ZoomAt(QPointF position, double factor);
  void TakeColors();
  void ShowCursor();

  QGraphicsScene board;
  ArtboardItem* item = nullptr;  // the scene's
  ArtworkPtr shown;
  QPoint grabbedAt;
  bool isSpaceHeld = false;
  bool isGrabbed = false;
  bool isFitted = true;
  bool isInviting = false;
  bool isComparing = false;
  std::function<void()> zoomed;
  std::function<void(const ArtworkPtr&)> whenShown;
};
