#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "studio/drawing/placement.h"
#include "studio/mosaic/artwork.h"
#include "studio/mosaic/mosaic_job.h"

class SvgDrawing;
class QIODevice;
struct ImageElement;

/// A mosaic made of an image in a drawing.
struct PlacedMosaic {
  const ImageElement* image;  // the drawing's
  Placement placement;
  std::shared_ptr<const Mosaic> mosaic;
};

/// Writes the drawing's bytes as they are, with a group of tiles after each image, or in its place
/// unless the mosaic keeps the picture. The mosaics are of different images. Tiles lie in the
/// image's own coordinate system; the group has its transform, clip, mask, opacity and the like.
/// Calls `goOn` with the number of rows that are done over all mosaics, and returns whether that
/// was always true. Throws StudioError when the device cannot be written.
[[nodiscard]] bool WriteDrawing(const SvgDrawing& drawing, std::vector<PlacedMosaic> mosaics,
                                QIODevice& device, const GoOn& goOn);
