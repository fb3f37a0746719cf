#pragma once

#include <QColorSpace>
#include <QColorTransform>
#include <QRgb>
#include <array>
#include <cstdint>
#include <optional>

/// Amounts of light of the three channels, 0 to 1, in the primaries of the screen.
struct Light {
  double red = 0;
  double green = 0;
  double blue = 0;

  /// What a grey tile of the same brightness gives off in each channel.
  Light Grey() const;
};

/// Translates a picture's 8-bit values into light, where means may be taken, and means back into
/// sRGB values. A picture in another colour space gets tables of its own; its primaries are changed
/// once for each mean, which is the same as changing them for each pixel and a great deal cheaper.
struct LightScale {
  /// An invalid colour space counts as sRGB.
  explicit LightScale(const QColorSpace& space);

  /// A mean of table values as light of the screen.
  Light OfScreen(double redMean, double greenMean, double blueMean) const;

  std::array<uint32_t, 256> red, green, blue;
  std::optional<QColorTransform> toScreen;
};

/// The light that an sRGB value, 0 to 255, gives off.
double LightOf(int value);

/// The nearest sRGB values, each channel 0 to 255; light out of range is pulled to the bound.
QRgb NearestColor(const Light& light, int alpha);
