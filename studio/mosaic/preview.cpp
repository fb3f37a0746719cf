#include "studio/mosaic/preview.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "studio/base/studio_error.h"
#include "studio/mosaic/mosaic_builder.h"
#include "studio/mosaic/mosaic_job.h"

namespace {

constexpr int kMostTilesShown = 900;  // across and down

QImage TilesOf(const Picture& picture, int across, int down, bool isColor) {
  QImage tiles(across, down, QImage::Format_ARGB32);
  if (tiles.isNull()) throw StudioError(kNoMemory);
  int row = 0;
  MosaicBuilder builder(picture, across, down, isColor);
  (void)builder.Run([&](std::span<const QRgb> colors) {
    std::memcpy(tiles.scanLine(row++), colors.data(), colors.size_bytes());
    return true;
  });
  return tiles;
}

Picture Reduced(const Picture& picture) {
  const QSize size = picture.Pixels().size();
  const QSize smaller = size.boundedTo(Reduction::kMostPixels);
  if (size == smaller) return picture;
  return Picture(TilesOf(picture, smaller.width(), smaller.height(), true));
}

}  // namespace

Reduction::Reduction(const Picture& picture) : reduced(Reduced(picture)) {}

Mosaic Reduction::Preview(const Picture& original, const MosaicChoices& choices) const {
  const MosaicJob job(original, choices);
  const MosaicGeometry& geometry = job.Geometry();
  Mosaic mosaic{geometry, {}, {}};
  mosaic.tiles = TilesOf(reduced, std::min(geometry.tilesAcross, kMostTilesShown),
                         std::min(geometry.tilesDown, kMostTilesShown), choices.params.isColor);
  if (job.ShowsPicture()) mosaic.below = reduced.PixelsInSrgb();
  return mosaic;
}
