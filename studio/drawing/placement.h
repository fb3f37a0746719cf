#pragma once

#include <QRect>
#include <QRectF>
#include <QSizeF>

struct ImageElement;

/// The position of an image element's picture in its drawing.
struct Placement {
  QRectF box;     // the rectangle that the picture covers, in the element's user units
  QSizeF size;    // the lengths of the box's sides on the page, in points
  QRect visible;  // the visible pixels; "slice" cuts at the nearest pixel

  /// For a picture with this number of pixels after EXIF rotation. Throws StudioError if a value of
  /// the element is not valid or no pixel is visible.
  static Placement Of(const ImageElement& image, QSize pixels);
};
