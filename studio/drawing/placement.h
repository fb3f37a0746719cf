#pragma once

#include <QRect>
#include <QRectF>
#include <QSizeF>

struct ImageElement;

/// Where an image element shows its picture.
struct Placement {
  QRectF box;     // that the picture covers, in the element's user units
  QSizeF size;    // of the box on the page, in points, along its own sides
  QRect visible;  // the pixels that show; those at the edge of a "slice" to the nearest pixel

  /// For a picture of this size, upright, in pixels. Throws StudioError when the element's values
  /// are not valid or leave nothing to see.
  static Placement Of(const ImageElement& image, QSize pixels);
};
