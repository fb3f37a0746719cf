#pragma once

#include <QGraphicsItem>
#include <optional>

#include "studio/mosaic/artwork.h"
#include "studio/window/tile_painter.h"

/// A white page and what lies on it, as one item however many tiles there are. A unit is a point;
/// the artwork's middle is the origin.
class ArtboardItem final : public QGraphicsItem {
 public:
  explicit ArtboardItem(const Artwork& artwork);

  QRectF Page() const { return page; }
  QRectF Art() const { return art; }

  QRectF boundingRect() const override;
  void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

 private:
  QRectF art;
  QRectF page;
  std::optional<ImageLevels> picture;  // what shows of it
  std::optional<TilePainter> tiles;
};
