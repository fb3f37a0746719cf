#include <QCoreApplication>
#include <QImage>
#include <cstdio>

#include "studio/sample/bay.h"
#include "studio/sample/paint.h"

namespace {

constexpr int kWidth = 1600;
constexpr int kHeight = 1056;
constexpr int kSamplesPerSide = 3;
constexpr int kJpegQuality = 90;

QRgb PixelAt(const Bay& bay, int x, int y) {
  Light sum;
  for (int i = 0; i < kSamplesPerSide; ++i) {
    for (int j = 0; j < kSamplesPerSide; ++j) {
      const double dx = (i + 0.5) / kSamplesPerSide;
      const double dy = (j + 0.5) / kSamplesPerSide;
      sum = sum + bay.At((x + dx) / kHeight, (y + dy) / kHeight);
    }
  }
  return NearestColor(sum * (1.0 / (kSamplesPerSide * kSamplesPerSide)));
}

}  // namespace

/// Paints the sample picture into the file that is named.
int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  if (argc != 2) {
    std::fputs("usage: paint-sample FILE\n", stderr);
    return 2;
  }
  const Bay bay;
  QImage image(kWidth, kHeight, QImage::Format_RGB32);
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) image.setPixel(x, y, PixelAt(bay, x, y));
  }
  image.setDotsPerMeterX(2835);
  image.setDotsPerMeterY(2835);
  if (image.save(argv[1], nullptr, kJpegQuality)) return 0;
  std::fprintf(stderr, "paint-sample: cannot write %s\n", argv[1]);
  return 2;
}
