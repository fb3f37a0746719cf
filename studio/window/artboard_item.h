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

  /// While true, the whole picture is painted in place of the mosaic.
  void SetComparing(bool comparing);

  QRectF boundingRect() const override;
  void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

 private:
  QRectF art;
  QRectF page;
  std::optional<ImageLevels> below;  // what shows of the picture under or without tiles
  ImageLevels picture;
  std::optional<TilePainter> tiles;
  bool isComparing = false;
};
