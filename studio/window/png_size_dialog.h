#pragma once

#include <optional>

struct MosaicGeometry;

/// Asks in a dialog over the active window how many pixels a point a PNG picture of a mosaic has:
/// by its width, height or resolution. Returns nothing when the dialog was cancelled. Throws
/// StudioError when the tiles are too many for a PNG.
std::optional<double> AskForPngScale(const MosaicGeometry& geometry);
