#pragma once

#include "mosaic/mosaic_suite.h"
#include "studio/picture/picture.h"

namespace bench {

/// What the dialog gives back for a picture of which only the mosaic is to remain.
inline MosaicParameters MosaicRequest(const Picture& picture, int tilesAcross, int tilesDown) {
  MosaicParameters params{};
  params.isColor = 1;
  params.deleteRaster = 1;
  params.tilesAcross = tilesAcross;
  params.tilesDown = tilesDown;
  params.sizeUnavailable = 1;
  params.newWidth = float(picture.SizeInPoints().width());
  params.newHeight = float(picture.SizeInPoints().height());
  return params;
}

}  // namespace bench
