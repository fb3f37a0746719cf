#include "studio/mosaic/preview.h"

#include <algorithm>

#include "studio/mosaic/mosaic_job.h"

namespace {

constexpr int kMostTilesShown = 900;  // across and down

QImage TilesOf(const Picture& picture, int across, int down, bool isColor) {
  MosaicChoices choices;
  MosaicParameters& params = choices.params;
  params.isColor = isColor;
  params.deleteRaster = 1;
  params.newWidth = float(params.tilesAcross = across);
  params.newHeight = float(params.tilesDown = down);
  MosaicJob job(picture, choices);
  Mosaic mosaic;
  job.Add(mosaic);
  (void)job.Run([](int) { return true; });
  return mosaic.tiles;
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
