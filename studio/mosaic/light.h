#pragma once

#include <QRgb>
#include <array>
#include <cstdint>

/// Converts 8-bit sRGB values to linear light, in which means are taken, and back. Tile colours and
/// the PNG export use it. All functions can be called on any thread.

/// Linear light of the three channels, 0 to 1, with sRGB's primaries.
struct Light {
  double red = 0;
  double green = 0;
  double blue = 0;

  /// The same luminance (ITU-R BT.709) in each channel.
  Light Grey() const;
};

/// The light of an sRGB value from 0 to 255, by the transfer function of IEC 61966-2-1.
double LightOf(int value);

/// The nearest sRGB values. Light is clamped to 0 and 1, NaN becomes 0.
QRgb NearestColor(const Light& light, int alpha);

/// LightOf of all values in units of 1 / kFullLight, for exact sums: 2^40 of them fit in 64 bits.
const std::array<uint32_t, 256>& LightTable();
inline constexpr uint32_t kFullLight = 1u << 24;
