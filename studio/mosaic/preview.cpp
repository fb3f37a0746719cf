#include "studio/mosaic/preview.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "studio/base/studio_error.h"
#include "studio/base/text.h"
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
  const QSize smaller = size.boundedTo({Reduction::kMostPixels, Reduction::kMostPixels});
  if (size == smaller) return picture;
  return Picture(TilesOf(picture, smaller.width(), smaller.height(), true));
}

/// Whether one percentage follows from the other one by the picture's ratio.
bool IsRatioOfPercentages(const MosaicChoices& choices) {
  const double width = choices.params.newWidth * 100.0;
  const double height = choices.params.newHeight * 100.0;
  const double ratio = choices.state.aspectRatio;
  const auto follows = [](double derived, double percentage) {
    return std::abs(std::round(derived) - percentage) < 1e-3;
  };
  return choices.state.usePercent && std::abs(width - height) > 0.5 &&
         (follows(width / ratio, height) || follows(height * ratio, width));
}

}  // namespace

Outlook OutlookFor(const Picture& picture, const MosaicChoices& choices) try {
  const MosaicGeometry geometry = MosaicJob(picture, choices).Geometry();
  QString text = Text("$$$/Studio/Dialog/Tiles=%1 tiles of %2 by %3 pt",
                      QString::number(qint64(geometry.tilesAcross) * geometry.tilesDown),
                      NumberForUser(geometry.tile.width()), NumberForUser(geometry.tile.height()));
  if (IsRatioOfPercentages(choices)) {
    text = Text("$$$/Studio/Dialog/RatioOfPercentages=%1. The ratio is applied to the percentages.",
                text);
  }
  return {text, true};
} catch (const StudioError& error) {
  return {Sentence(error.what()), false};
}

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
