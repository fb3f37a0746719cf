#pragma once

#include <QImage>
#include <string>
#include <vector>

#include "studio/base/text_writer.h"
#include "studio/mosaic/mosaic_geometry.h"
#include "studio/mosaic/mosaic_sink.h"

/// Writes the mosaic as an SVG drawing, a user unit a point: one `rect` per tile in one group, in
/// row order. Transparent tiles are there too, with their opacity, so that the count always holds.
class SvgSink : public MosaicSink {
 public:
  /// `below` lies under the tiles, as large as the mosaic; null for nothing.
  SvgSink(QIODevice& device, const MosaicGeometry& geometry, const QImage& below);

  void AddRow(std::span<const QRgb> tiles) override;
  void Finish() override;

 private:
  TextWriter writer;
  const MosaicGeometry geometry;
  std::vector<std::string> columnStarts;  // of each tile's element, to where its row comes in
  std::string sizeAttributes;
  int row = 0;
};
