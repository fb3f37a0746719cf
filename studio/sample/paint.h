#pragma once

#include <algorithm>
#include <cmath>

#include "studio/light_scale.h"

/// Arithmetic on light for painting.
inline Light operator*(const Light& light, double factor) {
  return {light.red * factor, light.green * factor, light.blue * factor};
}

inline Light operator+(const Light& a, const Light& b) {
  return {a.red + b.red, a.green + b.green, a.blue + b.blue};
}

/// From `a` to `b` as the share goes from 0 to 1; beyond that it stays at the nearer of them.
inline Light Mix(const Light& a, const Light& b, double share) {
  share = std::clamp(share, 0.0, 1.0);
  return a * (1 - share) + b * share;
}

/// 0 below `start`, 1 above `end`, smooth between them; also with `end` below `start`.
inline double Step(double start, double end, double value) {
  const double t = std::clamp((value - start) / (end - start), 0.0, 1.0);
  return t * t * (3 - 2 * t);
}

/// The light of an sRGB colour.
inline Light Paint(QRgb color) {
  return {LightOf(qRed(color)), LightOf(qGreen(color)), LightOf(qBlue(color))};
}
