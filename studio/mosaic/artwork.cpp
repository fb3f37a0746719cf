#include "studio/mosaic/artwork.h"

#include <utility>

namespace {

// The dialog computes with sizes of 16 bits; a larger picture is placed as of unknown size.
constexpr double kLargestSize = 32767;

bool IsUsable(double length) {
  return length >= 0.5 && length < kLargestSize + 0.5;
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
