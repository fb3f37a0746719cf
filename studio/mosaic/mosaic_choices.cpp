#include "studio/mosaic/mosaic_choices.h"

#include <algorithm>
#include <cmath>

#include "studio/mosaic/artwork.h"

namespace {

constexpr int kFirstTilesAcross = 100;
constexpr int kMostTilesEntered = 8640;  // that the dialog lets a person enter

MosaicChoices FirstChoices() {
  MosaicChoices choices;
  choices.params.tilesAcross = kFirstTilesAcross;
  choices.params.isColor = 1;
  choices.params.deleteRaster = 1;
  choices.params.keepHorizontal = 1;
  return choices;
}

}  // namespace

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
