#include "studio/drawing/placed_image.h"

#include <utility>

#include "studio/drawing/image_source.h"

PlacedImage PlacedImage::Read(std::shared_ptr<const SvgDrawing> drawing, const ImageElement& image,
                              bool isSizeUnknown, const std::function<bool()>& isStopped) {
  Picture picture = ReadImage(*drawing, image, isStopped);
  const Placement placement = Placement::Of(image, picture.Pixels().size());
  if (placement.visible.size() != picture.Pixels().size())
    picture = Picture(picture.Pixels().copy(placement.visible));
  picture.SetSizeInPoints(placement.size);
  ArtworkPtr artwork = Place(image.Name(), std::move(picture), isSizeUnknown);
  return {std::move(drawing), &image, placement, std::move(artwork)};
}
