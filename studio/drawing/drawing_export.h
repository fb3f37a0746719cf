#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "studio/drawing/placed_image.h"
#include "studio/mosaic/artwork.h"
#include "studio/mosaic/mosaic_job.h"

class QIODevice;

/// A mosaic of an image in a drawing.
struct PlacedMosaic {
  const ImageElement* image;  // owned by the drawing
  Placement placement;
  std::shared_ptr<const Mosaic> mosaic;
};

/// The approximate size in bytes of the drawing with these mosaics.
double EstimatedBytes(const SvgDrawing& drawing, const std::vector<PlacedMosaic>& mosaics);

/// Writes a copy of the drawing with a group of tiles for each mosaic: after its image if the
/// mosaic keeps the picture, else in its place and with its ID. All other bytes stay the same. The
/// tiles use the image's coordinate system; the group has its transform, clip, mask, opacity and
/// style. Each mosaic must be of another image. Calls `goOn` with the number of finished rows of
/// all mosaics, stops when it returns false, and returns whether everything is written. Throws
/// StudioError if the device cannot be written, or if a kept image is in a `switch`. Any thread may
/// call it.
[[nodiscard]] bool WriteDrawing(const SvgDrawing& drawing, std::vector<PlacedMosaic> mosaics,
                                QIODevice& device, const GoOn& goOn);
