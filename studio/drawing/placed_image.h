#pragma once

#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

#include "studio/drawing/placement.h"
#include "studio/drawing/svg_drawing.h"
#include "studio/mosaic/artwork.h"

/// An image of a drawing together with its picture. Console and window make one for each image that
/// becomes a mosaic.
struct PlacedImage {
  std::shared_ptr<const SvgDrawing> drawing;
  const ImageElement* image;  // owned by `drawing`
  Placement placement;
  ArtworkPtr artwork;  // the visible part of the picture; its path is the image's name

  /// Reads the picture. With `isSizeUnknown` the artwork has no size. Throws StudioError, also soon
  /// after `isStopped` returns true. Any thread may call it.
  static PlacedImage Read(
      std::shared_ptr<const SvgDrawing> drawing, const ImageElement& image, bool isSizeUnknown,
      const std::function<bool()>& isStopped = [] { return false; });
};
