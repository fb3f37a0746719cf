#pragma once

#include "studio/export/mosaic_raster.h"

class QIODevice;

/// Writes the mosaic as a PNG picture of the mosaic's size on the page. Its resolution gives every
/// tile some pixels where that is possible with about 64 million of them.
class PngSink : public MosaicSink {
 public:
  /// `below` lies under the tiles, as large as the mosaic; null for nothing.
  PngSink(QIODevice& device, const MosaicGeometry& geometry, const QImage& below);

  void AddRow(std::span<const QRgb> tiles) override { raster.AddRow(tiles); }
  void Finish() override;

 private:
  QIODevice& device;
  const double scale;  // pixels per point
  MosaicRaster raster;
  const QImage below;
};
