#include "studio/mosaic/light.h"

#include <cmath>

namespace {

constexpr size_t kSteps = 4096;

double LightOfFraction(double value) {
  return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

/// Inverts LightOf without calling pow: `starts` gives a value that is at most two below the
/// nearest one, and `borders`, the light halfway between a value and the next, the exact one.
struct Inverse {
  Inverse() {
    for (size_t value = 0; value < 255; ++value)
      borders[value] = LightOfFraction((double(value) + 0.5) / 255);
    borders[255] = HUGE_VAL;
    for (size_t step = 0; step < kSteps; ++step)
      starts[step] = Nearest(double(step) / kSteps, step > 0 ? starts[step - 1] : 0);
  }

  int Nearest(double light, int start) const {
    while (borders[size_t(start)] <= light) ++start;
    return start;
  }

  int Nearest(double light) const {
    if (!(light > 0)) return 0;
    return light >= 1 ? 255 : Nearest(light, starts[size_t(light * kSteps)]);
  }

  std::array<double, 256> borders;
  std::array<int, kSteps> starts;
};

template <typename Number, typename Function>
std::array<Number, 256> TableOf(Function function) {
  std::array<Number, 256> table;
  for (size_t value = 0; value < table.size(); ++value) table[value] = function(int(value));
  return table;
}

}  // namespace

Light Light::Grey() const {
  const double luminance = 0.2126 * red + 0.7152 * green + 0.0722 * blue;
  return {luminance, luminance, luminance};
}

double LightOf(int value) {
  static const auto lights = TableOf<double>([](int i) { return LightOfFraction(i / 255.0); });
  return lights[size_t(value)];
}

QRgb NearestColor(const Light& light, int alpha) {
  static const Inverse inverse;
  return qRgba(inverse.Nearest(light.red), inverse.Nearest(light.green),
               inverse.Nearest(light.blue), alpha);
}

const std::array<uint32_t, 256>& LightTable() {
  static const auto table =
      TableOf<uint32_t>([](int i) { return uint32_t(std::lround(LightOf(i) * kFullLight)); });
  return table;
}
