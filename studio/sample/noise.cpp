#include "studio/sample/noise.h"

#include <cmath>
#include <cstdint>

namespace {

double Lattice(int64_t x, int64_t y) {
  auto bits = uint64_t(x) * 0x9E3779B97F4A7C15u ^ uint64_t(y) * 0xC2B2AE3D27D4EB4Fu;
  bits = (bits ^ bits >> 29) * 0xBF58476D1CE4E5B9u;
  bits = (bits ^ bits >> 32) * 0x94D049BB133111EBu;
  return double(bits >> 40) / double(1 << 24);
}

double Ease(double t) {
  return t * t * t * (t * (t * 6 - 15) + 10);
}

}  // namespace

double Noise(double x, double y) {
  const auto left = int64_t(std::floor(x));
  const auto top = int64_t(std::floor(y));
  const double u = Ease(x - double(left));
  const double v = Ease(y - double(top));
  const double upper = std::lerp(Lattice(left, top), Lattice(left + 1, top), u);
  const double lower = std::lerp(Lattice(left, top + 1), Lattice(left + 1, top + 1), u);
  return std::lerp(upper, lower, v);
}

double Fractal(double x, double y, int octaves) {
  double sum = 0;
  double strength = 0.5;
  double total = 0;
  for (int octave = 0; octave < octaves; ++octave) {
    sum += strength * Noise(x, y);
    total += strength;
    strength /= 2;
    // An odd factor and shift keep the lattices of the octaves apart.
    x = x * 2.03 + 17.3;
    y = y * 2.03 + 5.9;
  }
  return sum / total;
}
