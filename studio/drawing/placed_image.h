#pragma once

#include <QRect>
#include <QRectF>
#include <QSizeF>
#include <functional>
#include <memory>

#include "studio/drawing/svg_drawing.h"
#include "studio/mosaic/artwork.h"

/// The position of an image element's picture in its drawing.
struct Placement {
  QRectF box;     // the rectangle that the picture covers, in the element's user units
  QSizeF size;    // the lengths of the box's sides on the page, in points
  QRect visible;  // the visible pixels; "slice" cuts at the nearest pixel

  /// For a picture with this number of pixels after EXIF rotation. Throws StudioError if a value of
  /// the element is not valid or no pixel is visible.
  static Placement Of(const ImageElement& image, QSize pixels);
};

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
