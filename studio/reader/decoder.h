#pragma once

#include <vips/vips8>

/// The file is not in one of the formats of the list.
struct UnsupportedFormat {};

/// Opens the first picture of a file as 8-bit sRGB, RGB or RGBA. Its pixels are decoded on demand,
/// from top to bottom; it is still to be turned by its orientation. Colours follow the embedded ICC
/// profile, relative colorimetric with black point compensation. Throws UnsupportedFormat, and
/// vips::VError when the file is damaged.
vips::VImage Open(const vips::VSource& source);

/// Writes the formats to standard output as picture_protocol.h describes.
void PrintFormats();
