#pragma once

#include <QImage>
#include <QPainter>
#include <map>
#include <memory>
#include <utility>

#include "studio/mosaic/artwork.h"

/// A mipmap: the image at half its size, a quarter and so on, each level computed on first use, so
/// that drawing it small takes no longer than drawing it large.
class ImageLevels {
 public:
  explicit ImageLevels(const QImage& full) : original(full) {}

  const QImage& Full() const { return original; }

  /// The smallest whose pixels are not larger than those of the screen, on which a pixel of the
  /// full image is this large.
  const QImage& For(double pixelWidth, double pixelHeight);

 private:
  const QImage original;
  std::map<std::pair<int, int>, QImage> reduced;
};

/// Draws a mosaic on the screen pixel by pixel, in a time that goes with the pixels that are seen
/// and not with the tiles: pixels that a tile covers in part take their share of its colour, and
/// tiles that are smaller than that are drawn from fewer and larger ones.
class TilePainter {
 public:
  explicit TilePainter(std::shared_ptr<const Mosaic> shown);

  /// With the mosaic's top left corner at the painter's origin, a unit a point. The painter's
  /// transformation may scale and move. Only `exposed` needs to be drawn.
  void Paint(QPainter& painter, const QRectF& exposed);

 private:
  const std::shared_ptr<const Mosaic> mosaic;
  ImageLevels levels;
};
