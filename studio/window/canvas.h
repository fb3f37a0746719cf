#pragma once

#include <QGraphicsScene>
#include <QGraphicsView>
#include <functional>

#include "studio/mosaic/artwork.h"
#include "studio/window/artboard_item.h"

/// Shows an artwork on its artboard, in StudioWindow and PreviewWindow. Ctrl and the wheel or a
/// pinch zoom; the wheel scrolls; dragging with the space bar or the middle button pans.
class Canvas final : public QGraphicsView {
 public:
  Canvas();

  /// Null shows an empty board. A new picture is fitted into the window; its mosaic replaces it at
  /// the same zoom and position.
  void Show(const ArtworkPtr& artwork);

  /// The visible part of the artwork, in screen coordinates; empty when there is none.
  QRect ArtOnScreen() const;

  /// Screen units a point: 1 at 100 %.
  double Zoom() const { return transform().m11(); }
  /// Keeps the centre of the visible part where it is.
  void SetZoom(double zoom);
  void ZoomIn();
  void ZoomOut();
  /// Shows the whole page, also when the window is resized, until the user zooms or pans.
  void Fit();

  /// Whether a frame shows that the dragged files can be dropped.
  void SetDropHighlight(bool highlighted);

  /// Whether the picture is shown in place of its mosaic.
  void SetComparing(bool isComparing);

  void WhenZoomed(std::function<void()> hook) { zoomed = std::move(hook); }
  /// `hook` is called after each Show with the same artwork.
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
  bool isHighlighted = false;
  bool isComparing = false;
  std::function<void()> zoomed;
  std::function<void(const ArtworkPtr&)> whenShown;
};
