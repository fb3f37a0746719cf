#include "studio/mosaic/preview.h"

#include <algorithm>

#include "studio/base/studio_error.h"
#include "studio/mosaic/mosaic_job.h"

namespace {

constexpr int kMostTilesShown = 900;  // across and down

constexpr qint64 kMostHeldPixels = 100'000'000;
constexpr QSize kMostPixelsShown{4096, 3072};  // of a picture that has more than the above

QImage TilesOf(
    const Picture& picture, int across, int down, bool isColor,
    const IsStopped& isStopped = [] { return false; }) {
  MosaicChoices choices;
  MosaicParameters& params = choices.params;
  params.isColor = isColor;
  params.deleteRaster = 1;
  params.newWidth = float(params.tilesAcross = across);
  params.newHeight = float(params.tilesDown = down);
  MosaicJob job(picture, choices);
  Mosaic mosaic;
  job.Add(mosaic);
  if (!job.Run([&](int) { return !isStopped(); })) throw StudioError(kReadingStopped);
  return mosaic.tiles;
}

Picture Reduced(const Picture& picture) {
  if (!picture.IsHeld()) return Reduced(Picture(picture.Pixels()));
  const QSize size = picture.Size();
  const QSize smaller = size.boundedTo(Reduction::kMostPixels);
  if (size == smaller) return picture;
  return Picture(TilesOf(picture, smaller.width(), smaller.height(), true));
}

}  // namespace

void MakeShowable(Picture& picture, const IsStopped& isStopped) {
  const QSize size = picture.Size();
  if (qint64(size.width()) * size.height() <= kMostHeldPixels) return picture.Hold(isStopped);
  const QSize shown = size.boundedTo(kMostPixelsShown);
  picture.ShowAs(TilesOf(picture, shown.width(), shown.height(), true, isStopped));
}

Reduction::Reduction(const Picture& picture) : reduced(Reduced(picture)) {}

Mosaic Reduction::Preview(const Picture& original, const MosaicChoices& choices) const {
  const MosaicJob job(original, choices);
  const MosaicGeometry& geometry = job.Geometry();
  Mosaic mosaic{geometry, {}, {}};
  mosaic.tiles = TilesOf(reduced, std::min(geometry.tilesAcross, kMostTilesShown),
                         std::min(geometry.tilesDown, kMostTilesShown), choices.params.isColor);
  if (job.ShowsPicture()) mosaic.below = reduced.Pixels();
  return mosaic;
}
