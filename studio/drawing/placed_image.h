#pragma once

#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

#include "studio/drawing/placement.h"
#include "studio/drawing/svg_drawing.h"
#include "studio/mosaic/artwork.h"

/// An image of a drawing with its picture, cut to what shows of it, at its size on the page.
struct PlacedImage {
  std::shared_ptr<const SvgDrawing> drawing;
  const ImageElement* image;  // the drawing's
  Placement placement;
  ArtworkPtr artwork;  // its path is the image's name

  /// `isSizeUnknown` when its size on the page is to be ignored. Throws StudioError; a picture that
  /// is a drawing itself is given up soon after `isStopped` says so.
  static PlacedImage Read(
      std::shared_ptr<const SvgDrawing> drawing, const ImageElement& image, bool isSizeUnknown,
      const std::function<bool()>& isStopped = [] { return false; });
};
