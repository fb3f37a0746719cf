#include "platform/qt/section.h"

#include <QEvent>
#include <QPainter>
#include <QPixmapCache>
#include <QStyle>
#include <QStyleOptionGroupBox>

#include "platform/qt/theme.h"

namespace qtui {

namespace {

constexpr int kCorner = 6;
constexpr int kFrameShare = 40;  // of the text's colour, of 255
constexpr int kFillShare = 9;

/// A rounded rectangle that consists of the frame's four corners only.
QPixmap Corners(const QPalette& palette, qreal ratio) {
  const QColor line = Faint(palette, kFrameShare);
  const QColor fill = Faint(palette, kFillShare);
  const QString key = QStringLiteral("section %1 %2 %3").arg(line.rgb()).arg(fill.rgb()).arg(ratio);
  QPixmap corners;
  if (QPixmapCache::find(key, &corners)) return corners;

  corners = QPixmap(QSize(2 * kCorner, 2 * kCorner) * ratio);
  corners.setDevicePixelRatio(ratio);
  corners.fill(palette.color(QPalette::Window));
  QPainter painter(&corners);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(line);
  painter.setBrush(fill);
  const qreal side = 2 * kCorner - 1;
  painter.drawRoundedRect(QRectF(0.5, 0.5, side, side), kCorner - 1, kCorner - 1);
  painter.end();
  QPixmapCache::insert(key, corners);
  return corners;
}

}  // namespace

Section::Section(QWidget& parent) : QGroupBox(&parent), titleFont(font()) {
  titleFont.setBold(true);
}

QString Section::PlainTitle() const {
  return title().replace(QStringLiteral("&&"), QStringLiteral("&"));
}

QSize Section::minimumSizeHint() const {
  QStyleOptionGroupBox option;
  initStyleOption(&option);
  const QFontMetrics metrics(titleFont);
  const QSize titleSize(metrics.horizontalAdvance(PlainTitle()), metrics.height());
  return style()
      ->sizeFromContents(QStyle::CT_GroupBox, &option, titleSize, this)
      .expandedTo(QWidget::minimumSizeHint());  // NOLINT: its own measures the title's plain font
}

void Section::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange) {
    titleFont = font();
    titleFont.setBold(true);
  }
  QGroupBox::changeEvent(event);
}

void Section::paintEvent(QPaintEvent*) {
  const QRect frame = rect().adjusted(0, contentsRect().top(), 0, 0);
  QPainter painter(this);
  PaintFrame(painter, frame);
  painter.setFont(titleFont);
  painter.setPen(palette().color(foregroundRole()));
  const QRect titleRect(0, 0, width(), frame.top());
  painter.drawText(titleRect,
                   QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignVCenter |
                       Qt::TextSingleLine,
                   PlainTitle());
}

void Section::PaintFrame(QPainter& painter, const QRect& frame) const {
  // Filling opaque rectangles is much faster than antialiasing; only the corners need it.
  const QColor line = Faint(palette(), kFrameShare);
  painter.fillRect(frame.adjusted(1, 1, -1, -1), Faint(palette(), kFillShare));
  painter.fillRect(frame.left(), frame.top(), frame.width(), 1, line);
  painter.fillRect(frame.left(), frame.bottom(), frame.width(), 1, line);
  painter.fillRect(frame.left(), frame.top(), 1, frame.height(), line);
  painter.fillRect(frame.right(), frame.top(), 1, frame.height(), line);
  const QPixmap corners = Corners(palette(), devicePixelRatioF());
  const QSize size(kCorner, kCorner);
  const QPoint far = frame.bottomRight() - QPoint(kCorner - 1, kCorner - 1);
  for (const int right : {0, 1}) {
    for (const int below : {0, 1}) {
      const QPoint place(right != 0 ? far.x() : frame.left(), below != 0 ? far.y() : frame.top());
      const QPointF source = QPointF(right * kCorner, below * kCorner) * corners.devicePixelRatio();
      painter.drawPixmap(QRectF(place, size), corners,
                         QRectF(source, size * corners.devicePixelRatio()));
    }
  }
}

}  // namespace qtui
