#pragma once

#include <QImage>
#include <algorithm>
#include <cmath>

/// The contrast ratio of WCAG 2, from 1 to 21.
inline double Contrast(QRgb one, QRgb other) {
  const auto luminance = [](QRgb color) {
    const auto light = [](int value) {
      const double share = value / 255.0;
      return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * light(qRed(color)) + 0.7152 * light(qGreen(color)) +
           0.0722 * light(qBlue(color)) + 0.05;
  };
  const double ratio = luminance(one) / luminance(other);
  return std::max(ratio, 1 / ratio);
}

/// The highest contrast of a pixel to the one in the top left corner.
inline double ContrastIn(const QImage& picture) {
  double most = 1;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x)
      most = std::max(most, Contrast(picture.pixel(x, y), picture.pixel(0, 0)));
  }
  return most;
}
