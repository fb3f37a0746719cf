#pragma once

#include <QString>

#include "studio/window/artwork.h"

/// The size of what lies on the artboard, as in "600 × 400 pt", or that it is not known.
QString SizeInPointsText(const Artwork& artwork);
/// The same in millimetres; empty when the size is not known.
QString SizeInMillimetersText(const Artwork& artwork);
/// As in "100 × 67 tiles"; empty without a mosaic.
QString TileCountText(const Artwork& artwork);
/// As in "66.7 %".
QString PercentText(double share);
