#include "studio/picture/light_scale.h"

#include <QRgbaFloat32>
#include <algorithm>
#include <cmath>

namespace {

constexpr int kCoarseSteps = 4096;

// The table value of full light; sums of 2^40 such values fit in 64 bits.
constexpr uint32_t kFull = 1u << 24;

double LightOfFraction(double value) {
  return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

/// Finds the nearest of 256 values without a power: a coarse table gives a value that is at most
/// a step or two too low, the exact borders between neighbours settle the rest.
class ValueFinder {
 public:
  ValueFinder() {
    for (int value = 0; value < 255; ++value) borders[value] = LightOfFraction((value + 0.5) / 255);
    borders[255] = HUGE_VAL;
    int value = 0;
    for (int step = 0; step < kCoarseSteps; ++step) {
      while (borders[value] <= double(step) / kCoarseSteps) ++value;
      coarse[step] = uint8_t(value);
    }
  }

  int Find(double light) const {
    if (!(light > 0)) return 0;
    if (light >= 1) return 255;
    int value = coarse[int(light * kCoarseSteps)];
    while (borders[value] <= light) ++value;
    return value;
  }

 private:
  std::array<double, 256> borders;
  std::array<uint8_t, kCoarseSteps> coarse;
};

uint32_t TableValue(double light) {
  return uint32_t(std::lround(std::clamp(light, 0.0, 1.0) * kFull));
}

}  // namespace

Light Light::Grey() const {
  const double luminance = 0.2126 * red + 0.7152 * green + 0.0722 * blue;
  return {luminance, luminance, luminance};
}

LightScale::LightScale(const QColorSpace& space) {
  if (!space.isValid() || space == QColorSpace(QColorSpace::SRgb)) {
    for (int value = 0; value < 256; ++value) red[value] = TableValue(LightOf(value));
    green = blue = red;
    return;
  }
  const QColorSpace linear = space.withTransferFunction(QColorSpace::TransferFunction::Linear);
  const QColorTransform toLinear = space.transformationToColorSpace(linear);
  for (int value = 0; value < 256; ++value) {
    const auto light = toLinear.map(QRgbaFloat32::fromRgba(value, value, value, 255));
    red[value] = TableValue(light.red());
    green[value] = TableValue(light.green());
    blue[value] = TableValue(light.blue());
  }
  toScreen = linear.transformationToColorSpace(QColorSpace(QColorSpace::SRgbLinear));
}

Light LightScale::OfScreen(double redMean, double greenMean, double blueMean) const {
  const Light light{redMean / kFull, greenMean / kFull, blueMean / kFull};
  if (!toScreen) return light;
  const auto mapped =
      toScreen->map(QRgbaFloat32{float(light.red), float(light.green), float(light.blue), 1.0f});
  return {mapped.red(), mapped.green(), mapped.blue()};
}

double LightOf(int value) {
  static const auto lights = [] {
    std::array<double, 256> table;
    for (int i = 0; i < 256; ++i) table[size_t(i)] = LightOfFraction(i / 255.0);
    return table;
  }();
  return lights[size_t(value)];
}

QRgb NearestColor(const Light& light, int alpha) {
  static const ValueFinder finder;
  return qRgba(finder.Find(light.red), finder.Find(light.green), finder.Find(light.blue), alpha);
}
