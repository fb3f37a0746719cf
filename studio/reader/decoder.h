#pragma once

#include <memory>
#include <string>
#include <vips/vips8>

/// The first picture of a file. Pixels are computed as they are asked for, from top to bottom only.
struct Decoded {
  vips::VImage image;
  int orientation = 1;           // how `image` must be turned, by its EXIF number
  std::shared_ptr<void> toSrgb;  // LittleCMS' transform of its rows; null when they are 8-bit RGB
  int channels = 3;              // of the rows after that; 4 with alpha, which is not premultiplied
  std::string profile;           // ICC, RGB with a matrix; empty for sRGB

  /// The image as the camera saw it. Orientations above 2 first need the whole image in memory.
  vips::VImage Upright(const vips::VImage& source) const;
};

struct UnsupportedFormat {};

/// Opens the file without reading its pixels. Unless `converts`, 8-bit RGB with a matrix profile
/// keeps its values and the profile. All else is converted to sRGB, relative colorimetric with
/// black point compensation. Throws UnsupportedFormat, and vips::VError when the file is damaged.
Decoded Open(const vips::VSource& source, bool converts);
