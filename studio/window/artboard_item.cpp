#include "studio/window/artboard_item.h"

#include <QPainter>
#include <QStyleOptionGraphicsItem>
#include <algorithm>

namespace {

constexpr double kMargin = 0.06;  // around the art, in shares of its longer side
constexpr int kShadowSteps = 6;   // each a pixel of the screen wide

QRectF Around(QSizeF size) {
  return {-size.width() / 2, -size.height() / 2, size.width(), size.height()};
}

/// A checkerboard behind transparent art, with squares of a constant size on the screen.
void PaintCheckerboard(QPainter& painter, const QRectF& rect, double scale) {
  constexpr double kSquare = 8;  // pixels
  QImage squares(2, 2, QImage::Format_RGB32);
  squares.fill(Qt::white);
  for (int i : {0, 1}) squares.setPixel(i, i, 0xFFD9D9D9);
  QBrush brush(squares);
  brush.setTransform(
      QTransform::fromTranslate(rect.left(), rect.top()).scale(kSquare / scale, kSquare / scale));
  painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
  painter.fillRect(rect, brush);
}

/// Large pixels keep their edges, small ones are smoothed.
void PaintPicture(QPainter& painter, ImageLevels& levels, const QRectF& target) {
  const QTransform transform = painter.combinedTransform();
  const QSize full = levels.Full().size();
  const double pixelWidth = target.width() / full.width() * transform.m11();
  const double pixelHeight = target.height() / full.height() * transform.m22();
  constexpr double kLargePixel = 3;
  const QImage& level = levels.For(pixelWidth, pixelHeight);
  painter.setRenderHint(QPainter::SmoothPixmapTransform,
                        std::max(pixelWidth, pixelHeight) < kLargePixel);
  painter.drawImage(target, level);
}

}  // namespace

ArtboardItem::ArtboardItem(const Artwork& artwork)
    : art(Around(artwork.Size())), picture(artwork.picture.Pixels()) {
  setFlag(ItemUsesExtendedStyleOption);  // to be told what is exposed

  // The page stays when the picture becomes a mosaic, unless that grows beyond it.
  const QSizeF placed = artwork.picture.SizeInPoints();
  const QSizeF size = placed.expandedTo(artwork.Size());
  const double margin = kMargin * std::max(size.width(), size.height());
  page = Around(size).adjusted(-margin, -margin, margin, margin);
  if (!artwork.mosaic) return;
  if (!artwork.mosaic->below.isNull()) below.emplace(artwork.mosaic->below);
  tiles.emplace(artwork.mosaic);
}

void ArtboardItem::SetComparing(bool comparing) {
  isComparing = comparing;
  update();
}

QRectF ArtboardItem::boundingRect() const {
  const double reach = page.width() * 0.05 + kShadowSteps;
  return page.adjusted(-reach, -reach, reach, reach);
}

void ArtboardItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget*) {
  const double scale = painter->worldTransform().m11();
  painter->setPen(Qt::NoPen);
  for (int step = kShadowSteps; step > 0; --step) {
    const double reach = step / scale;
    painter->setBrush(QColor(0, 0, 0, 10));
    painter->drawRoundedRect(page.adjusted(-reach, -reach / 2, reach, reach * 1.5), reach, reach);
  }
  painter->fillRect(page, Qt::white);

  // Where white art ends on the white page; a line beside it, which covers none of it.
  const double line = 1 / scale;
  painter->setBrush(QColor(0, 0, 0, 40));
  painter->drawRect(art.adjusted(-line, -line, line, line));
  if (picture.Full().hasAlphaChannel()) {
    PaintCheckerboard(*painter, art, scale);
  } else {
    painter->fillRect(art, Qt::white);
  }

  if (isComparing || !tiles) return PaintPicture(*painter, picture, art);
  if (below) PaintPicture(*painter, *below, art);
  painter->save();
  painter->translate(art.topLeft());
  tiles->Paint(*painter, option->exposedRect.translated(-art.topLeft()));
  painter->restore();
}
