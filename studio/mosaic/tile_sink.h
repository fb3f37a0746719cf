#pragma once

#include <QImage>

#include "studio/mosaic/mosaic_geometry.h"
#include "studio/mosaic/mosaic_sink.h"

/// Collects a mosaic as an image with a pixel for each tile.
class TileSink : public MosaicSink {
 public:
  /// The image must outlive the sink. Throws StudioError when there is no memory for the tiles.
  TileSink(const MosaicGeometry& geometry, QImage& tiles);

  void AddRow(std::span<const QRgb> row) override;
  void Finish() override {}

 private:
  QImage& image;
  int rows = 0;
};
