#pragma once

#include "mosaic/mosaic_suite.h"
#include "studio/picture/picture.h"

namespace bench {

/// The dialog's result for a mosaic that replaces its picture.
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
