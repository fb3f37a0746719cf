#include "studio/mosaic/artwork.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr int kFirstTilesAcross = 100;
constexpr int kMostTilesEntered = 8640;  // that the dialog lets a person enter

// The dialog computes with sizes of 16 bits; a larger picture is placed as of unknown size.
constexpr double kLargestSize = 32767;

bool IsUsable(double length) {
  return length >= 0.5 && length < kLargestSize + 0.5;
}

MosaicChoices FirstChoices() {
  MosaicChoices choices;
  choices.params.tilesAcross = kFirstTilesAcross;
  choices.params.isColor = 1;
  choices.params.deleteRaster = 1;
  choices.params.keepHorizontal = 1;
  return choices;
}

}  // namespace

ArtworkPtr Place(const QString& path, Picture picture, bool isSizeUnknown) {
  const QSizeF size = picture.SizeInPoints();
  const bool isSizeKnown = !isSizeUnknown && IsUsable(size.width()) && IsUsable(size.height());
  return std::make_shared<const Artwork>(Artwork{path, std::move(picture), isSizeKnown, nullptr});
}

ArtworkPtr WithMosaic(const Artwork& artwork, Mosaic mosaic) {
  Artwork made = artwork;
  made.mosaic = std::make_shared<const Mosaic>(std::move(mosaic));
  return std::make_shared<const Artwork>(std::move(made));
}

MosaicChoices ChoicesFor(const Artwork& artwork, const std::optional<MosaicChoices>& last,
                         const std::optional<MosaicChoices>& former) {
  const QSizeF size = artwork.picture.SizeInPoints();
  MosaicChoices choices = former ? *former : last ? *last : FirstChoices();
  MosaicParameters& params = choices.params;
  if (!former) {
    const double down = params.tilesAcross * size.height() / size.width();
    params.tilesDown = int(std::lround(std::clamp(down, 1.0, double(kMostTilesEntered))));
  }
  params.sizeUnavailable = !artwork.isSizeKnown;
  params.boundsRight = artwork.isSizeKnown ? int(std::lround(size.width())) : 0;
  params.boundsBottom = artwork.isSizeKnown ? int(std::lround(size.height())) : 0;
  return choices;
}
