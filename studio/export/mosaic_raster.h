#pragma once

#include <QImage>
#include <utility>
#include <vector>

#include "studio/mosaic/mosaic_geometry.h"
#include "studio/mosaic/mosaic_sink.h"
#include "studio/picture/light_scale.h"

/// Draws the mosaic in pixels. Pixels that a tile covers in part take their share of its light, so
/// tiles that touch show no seam, and gaps narrower than a pixel keep their weight. What no tile
/// covers stays transparent.
class MosaicRaster : public MosaicSink {
 public:
  /// Throws StudioError when there is no memory for the pixels. The scale is in pixels per point.
  MosaicRaster(const MosaicGeometry& geometry, double scale);

  void AddRow(std::span<const QRgb> tiles) override;
  void Finish() override;

  /// The drawing, after Finish, and only once: Format_ARGB32, or Format_RGB32 when tiles cover all.
  QImage TakeImage() { return std::move(image); }

 private:
  /// Sums of light and of covered area, in shares of a pixel.
  struct Sample {
    Light light;
    double cover = 0;
  };

  void SpreadAcross(std::span<const QRgb> tiles);
  void CloseRow();
  void PaintRow(int y, const std::vector<Sample>& samples);

  const MosaicGeometry geometry;
  const double scale;
  QImage image;
  std::vector<Sample> across;  // the present tiles along a line of full height
  std::vector<Sample> open;    // of the row of pixels `openRow`, which more tiles may cover
  int openRow = -1;
  bool isOpaque = true;
  int row = 0;
};
