#include "bench/photograph.h"

#include <QBuffer>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <stdexcept>

namespace bench {

namespace {

constexpr int kWidth = 6000;
constexpr int kHeight = 4000;
constexpr int kQuality = 90;
constexpr int kNoise = 15;  // range of values

/// A fast pseudo-random generator with the same sequence on every machine.
class Noise {
 public:
  int Next() {
    state ^= state << 13;
    state ^= state >> 17;
    state ^= state << 5;
    return int(state >> 8) % kNoise - kNoise / 2;
  }

 private:
  uint32_t state = 2463534242u;
};

}  // namespace

QImage MakePhotograph(int width, int height) {
  QImage image(width, height, QImage::Format_RGB32);
  Noise noise;
  for (int y = 0; y < height; ++y) {
    auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
    const double down = double(y) / height;
    for (int x = 0; x < width; ++x) {
      const double across = double(x) / width;
      const double wave = 30 * std::sin(40 * across) * std::cos(25 * down);
      const int grain = noise.Next();
      const auto value = [&](double light) {
        return std::clamp(int(light + wave) + grain, 0, 255);
      };
      line[x] = qRgb(value(60 + 130 * across), value(80 + 90 * down), value(200 - 140 * down));
    }
  }
  return image;
}

Photograph::Photograph() {
  QBuffer buffer(&jpeg);
  buffer.open(QIODevice::WriteOnly);
  if (!MakePhotograph(kWidth, kHeight).save(&buffer, "JPG", kQuality)) {
    throw std::runtime_error("the photograph cannot be written");
  }
  pixels = QImage::fromData(jpeg, "JPG");
  if (pixels.size() != QSize(kWidth, kHeight)) throw std::runtime_error("it cannot be read");
}

const Photograph& BigPhotograph() {
  static const Photograph photograph;
  return photograph;
}

}  // namespace bench
