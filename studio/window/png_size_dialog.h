#pragma once

#include <optional>

class QWidget;
struct MosaicGeometry;

/// Asks in a modal dialog over `window` for the size of a PNG of a mosaic: by width, height or
/// resolution. Returns pixels per point, or nothing when the user cancelled. Throws StudioError
/// when a PNG cannot give each tile a pixel.
std::optional<double> AskForPngScale(QWidget& window, const MosaicGeometry& geometry);
