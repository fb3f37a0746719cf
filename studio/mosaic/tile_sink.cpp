#include "studio/mosaic/tile_sink.h"

#include <cstring>

#include "studio/base/studio_error.h"

TileSink::TileSink(const MosaicGeometry& geometry, QImage& tiles) : image(tiles) {
  image = QImage(geometry.tilesAcross, geometry.tilesDown, QImage::Format_ARGB32);
  if (image.isNull()) throw StudioError(kNoMemory);
}

void TileSink::AddRow(std::span<const QRgb> row) {
  std::memcpy(image.scanLine(rows++), row.data(), row.size_bytes());
}
