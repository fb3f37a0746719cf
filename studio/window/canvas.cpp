#include "studio/window/canvas.h"

#include <QAccessibleWidget>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <iterator>

#include "studio/base/text.h"
#include "studio/window/captions.h"

namespace {

constexpr double kZooms[] = {0.01,    0.02, 0.03,    0.05, 0.0625, 0.08, 0.125, 0.17, 0.25,
                             1.0 / 3, 0.5,  2.0 / 3, 1,    1.5,    2,    3,     4,    6,
                             8,       12,   16,      24,   32,     48,   64};
constexpr double kLeastZoom = 0.001;
constexpr double kMostZoom = 64;
constexpr double kMostFittedZoom = 8;
constexpr double kWheelStep = 120;
constexpr double kFactorPerStep = 1.2;
constexpr int kFrame = 36;  // free space around a fitted page, with room for its label
constexpr int kLabelGap = 8;

/// The artboard for assistive technology: one object, without the scroll area's parts.
class AccessibleArtboard final : public QAccessibleWidget {
 public:
  static QAccessibleInterface* Make(const QString&, QObject* object) {
    auto* const canvas = dynamic_cast<Canvas*>(object);
    return canvas ? new AccessibleArtboard(*canvas) : nullptr;
  }

  explicit AccessibleArtboard(Canvas& canvas) : QAccessibleWidget(&canvas, QAccessible::Canvas) {}

  int childCount() const override { return 0; }
  QAccessibleInterface* child(int) const override { return nullptr; }
};

}  // namespace

Canvas::Canvas() {
  [[maybe_unused]] static const bool isKnown = [] {
    QAccessible::installFactory(AccessibleArtboard::Make);
    return true;
  }();
  setObjectName("canvas");
  setAccessibleName(Text("$$$/Studio/Canvas/Name=Artboard"));
  setScene(&board);
  setFrameShape(QFrame::NoFrame);
  setAcceptDrops(false);  // the window accepts drops
  setTransformationAnchor(NoAnchor);
  setResizeAnchor(AnchorViewCenter);
  setViewportUpdateMode(FullViewportUpdate);
  setFocusPolicy(Qt::StrongFocus);
  setContextMenuPolicy(Qt::NoContextMenu);
  TakeColors();
}

void Canvas::Show(const ArtworkPtr& artwork) {
  const bool isOther = !artwork || !shown || artwork->path != shown->path;
  shown = artwork;
  board.clear();
  item = nullptr;
  if (artwork) ShowItem(isOther);
  if (whenShown) whenShown(artwork);
}

void Canvas::ShowItem(bool isOther) {
  setAccessibleDescription(QFileInfo(shown->path).fileName() + ", " + SummaryText(*shown));
  item = new ArtboardItem(*shown);
  item->SetComparing(isComparing);
  board.addItem(item);
  // Margins that allow scrolling until an edge of the page is in the middle of the view.
  const QRectF page = item->Page();
  board.setSceneRect(
      page.adjusted(-page.width() / 2, -page.height() / 2, page.width() / 2, page.height() / 2));
  if (isOther || isFitted) Fit();
}

void Canvas::SetComparing(bool comparing) {
  isComparing = comparing;
  if (item) item->SetComparing(isComparing);
}

/// A fitted page needs no scroll bars, although the scene is larger than the page.
void Canvas::SetFitted(bool fitted) {
  isFitted = fitted;
  const auto policy = fitted ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded;
  setHorizontalScrollBarPolicy(policy);
  setVerticalScrollBarPolicy(policy);
}

void Canvas::Scale(double zoom) {
  zoom = std::clamp(zoom, kLeastZoom, kMostZoom);
  setTransform(QTransform::fromScale(zoom, zoom));
  if (zoomed) zoomed();
}

void Canvas::SetZoom(double zoom) {
  if (Zoom() > 0) ZoomAt(viewport()->rect().center(), zoom / Zoom());
}

QRect Canvas::ArtOnScreen() const {
  if (!item) return {};
  const QRect art = mapFromScene(item->Art()).boundingRect() & viewport()->rect();
  return {viewport()->mapToGlobal(art.topLeft()), art.size()};
}

void Canvas::ZoomIn() {
  const auto next = std::upper_bound(std::begin(kZooms), std::end(kZooms), Zoom() * 1.01);
  if (next != std::end(kZooms)) SetZoom(*next);
}

void Canvas::ZoomOut() {
  const auto next = std::lower_bound(std::begin(kZooms), std::end(kZooms), Zoom() * 0.99);
  if (next != std::begin(kZooms)) SetZoom(*std::prev(next));
}

void Canvas::Fit() {
  SetFitted(true);
  if (!item) return;
  const QRectF page = item->Page();
  const QSizeF room = viewport()->size() - QSize(2 * kFrame, 2 * kFrame);
  const double zoom = std::min(room.width() / page.width(), room.height() / page.height());
  Scale(std::min(zoom, kMostFittedZoom));
  centerOn(page.center());
}

void Canvas::ZoomAt(QPointF position, double factor) {
  if (!item) return;
  const QPointF fixed = mapToScene(position.toPoint());
  SetFitted(false);
  Scale(Zoom() * factor);
  const QPointF off = QPointF(mapFromScene(fixed)) - position;
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() + int(std::lround(off.x())));
  verticalScrollBar()->setValue(verticalScrollBar()->value() + int(std::lround(off.y())));
}

void Canvas::wheelEvent(QWheelEvent* event) {
  if (!(event->modifiers() & Qt::ControlModifier)) return QGraphicsView::wheelEvent(event);
  ZoomAt(event->position(), std::pow(kFactorPerStep, event->angleDelta().y() / kWheelStep));
  event->accept();
}

bool Canvas::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::NativeGesture) {
    const auto* const gesture = static_cast<QNativeGestureEvent*>(event);
    if (gesture->gestureType() == Qt::ZoomNativeGesture) {
      ZoomAt(gesture->position(), 1 + gesture->value());
      return true;
    }
  }
  return QGraphicsView::viewportEvent(event);
}

void Canvas::resizeEvent(QResizeEvent* event) {
  QGraphicsView::resizeEvent(event);
  if (isFitted) Fit();
}

void Canvas::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Space) return QGraphicsView::keyPressEvent(event);
  isSpaceHeld = true;
  ShowCursor();
}

void Canvas::keyReleaseEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Space) return QGraphicsView::keyReleaseEvent(event);
  if (event->isAutoRepeat()) return;
  isSpaceHeld = false;
  ShowCursor();
}

void Canvas::focusOutEvent(QFocusEvent* event) {
  QGraphicsView::focusOutEvent(event);
  isSpaceHeld = isGrabbed = false;
  ShowCursor();
}

void Canvas::mousePressEvent(QMouseEvent* event) {
  const bool isLeftGrab = isSpaceHeld && event->button() == Qt::LeftButton;
  if (!isLeftGrab && event->button() != Qt::MiddleButton) {
    return QGraphicsView::mousePressEvent(event);
  }
  isGrabbed = true;
  grabbedAt = event->pos();
  ShowCursor();
}

void Canvas::mouseMoveEvent(QMouseEvent* event) {
  if (!isGrabbed) return QGraphicsView::mouseMoveEvent(event);
  const QPoint way = event->pos() - grabbedAt;
  grabbedAt = event->pos();
  SetFitted(false);
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() - way.x());
  verticalScrollBar()->setValue(verticalScrollBar()->value() - way.y());
}

void Canvas::mouseReleaseEvent(QMouseEvent* event) {
  QGraphicsView::mouseReleaseEvent(event);
  if (!isGrabbed || event->buttons() != Qt::NoButton) return;
  isGrabbed = false;
  ShowCursor();
}

void Canvas::ShowCursor() {
  viewport()->setCursor(isGrabbed     ? Qt::ClosedHandCursor
                        : isSpaceHeld ? Qt::OpenHandCursor
                                      : Qt::ArrowCursor);
}

void Canvas::changeEvent(QEvent* event) {
  QGraphicsView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) TakeColors();
}

/// A neutral grey, which does not distort the perception of the artwork's colours.
void Canvas::TakeColors() {
  const bool isDark = palette().color(QPalette::Window).lightness() < 128;
  setBackgroundBrush(isDark ? QColor(0xFF262626) : QColor(0xFFD4D4D4));
}

void Canvas::SetDropHighlight(bool highlighted) {
  isHighlighted = highlighted;
  viewport()->update();
}

/// Paints the picture's name and size above the page; their size does not depend on the zoom.
void Canvas::drawForeground(QPainter* painter, const QRectF&) {
  if (isHighlighted) {
    constexpr int kFrameWidth = 4;
    painter->save();
    painter->resetTransform();
    painter->setPen(QPen(palette().highlight(), 2 * kFrameWidth));
    painter->drawRect(viewport()->rect());
    painter->restore();
  }
  if (!item) return;
  const QRect page = mapFromScene(item->Page()).boundingRect();
  painter->save();
  painter->resetTransform();
  painter->setFont(font());
  QColor color = palette().color(QPalette::WindowText);
  color.setAlphaF(0.75F);
  painter->setPen(color);

  const QFontMetrics metrics = fontMetrics();
  const QString size = SizeInPointsText(*shown);
  const int sizeWidth = metrics.horizontalAdvance(size);
  const int width = std::max(page.width(), sizeWidth);
  const int baseline = page.top() - kLabelGap;
  const int right = isRightToLeft() ? page.left() : page.left() + width - sizeWidth;
  painter->drawText(right, baseline, size);
  const QString name = metrics.elidedText(QFileInfo(shown->path).fileName(), Qt::ElideMiddle,
                                          width - sizeWidth - 2 * kLabelGap);
  const int nameLeft =
      isRightToLeft() ? page.left() + width - metrics.horizontalAdvance(name) : page.left();
  painter->drawText(nameLeft, baseline, name);
  painter->restore();
}
