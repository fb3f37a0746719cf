#pragma once

#include <optional>

struct MosaicGeometry;
class QWidget;

/// How many pixels a point a PNG picture of a mosaic has, chosen as its width or its resolution;
/// nothing when the dialog was cancelled. Throws StudioError when its tiles are too many for one.
std::optional<double> AskForPngScale(QWidget& window, const MosaicGeometry& geometry);
