#include "studio/mosaic_builder.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/studio/random_picture.h"

namespace {

std::vector<QRgb> BuildAll(const Picture& picture, int across, int down, bool isColor = true) {
  std::vector<QRgb> all;
  MosaicBuilder builder(picture, across, down, isColor);
  EXPECT_TRUE(builder.Run([&](std::span<const QRgb> row) {
    all.insert(all.end(), row.begin(), row.end());
    return true;
  }));
  return all;
}

double ToLight(int value) {
  const double v = value / 255.0;
  return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
}

int ToValue(double light) {
  const double v = light <= 0.0031308 ? 12.92 * light : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
  return int(std::lround(v * 255));
}

double Overlap(double start, double end, int pixel) {
  return std::max(0.0, std::min(end, pixel + 1.0) - std::max(start, double(pixel)));
}

/// The mean over one tile by looking at every pixel of the picture.
QRgb SlowMean(const QImage& image, QRectF tile, bool isColor) {
  double red = 0, green = 0, blue = 0, opacity = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QRgb pixel = image.pixel(x, y);
      const double weight = Overlap(tile.left(), tile.right(), x) *
                            Overlap(tile.top(), tile.bottom(), y) * qAlpha(pixel) / 255.0;
      red += weight * ToLight(qRed(pixel));
      green += weight * ToLight(qGreen(pixel));
      blue += weight * ToLight(qBlue(pixel));
      opacity += weight;
    }
  }
  const int alpha = int(std::lround(255 * opacity / (tile.width() * tile.height())));
  if (alpha == 0) return 0;
  if (!isColor) red = green = blue = 0.2126 * red + 0.7152 * green + 0.0722 * blue;
  return qRgba(ToValue(red / opacity), ToValue(green / opacity), ToValue(blue / opacity), alpha);
}

int Difference(QRgb a, QRgb b) {
  return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                   std::abs(qBlue(a) - qBlue(b)), std::abs(qAlpha(a) - qAlpha(b))});
}

TEST(MosaicBuilder, FindsTheExactMeanOfEveryShare) {
  const struct {
    QSize picture;
    QSize tiles;
  } kCases[] = {{{1, 1}, {1, 1}},   {{1, 1}, {5, 3}},     {{7, 5}, {7, 5}},
                {{13, 11}, {1, 1}}, {{13, 11}, {5, 4}},   {{3, 2}, {10, 7}},
                {{17, 4}, {3, 9}},  {{40, 31}, {39, 30}}, {{64, 48}, {8, 6}}};
  unsigned seed = 1;
  for (const auto& [size, tiles] : kCases) {
    for (const bool isColor : {true, false}) {
      for (const auto format : {QImage::Format_RGB32, QImage::Format_ARGB32}) {
        const QImage image = RandomImage(size.width(), size.height(), format, ++seed);
        const auto built = BuildAll(Picture(image), tiles.width(), tiles.height(), isColor);
        ASSERT_EQ(built.size(), size_t(tiles.width() * tiles.height()));
        const QSizeF share(double(size.width()) / tiles.width(),
                           double(size.height()) / tiles.height());
        for (size_t i = 0; i < built.size(); ++i) {
          const int row = int(i) / tiles.width();
          const int column = int(i) % tiles.width();
          const QPointF corner(column * share.width(), row * share.height());
          const QRgb expected = SlowMean(image, QRectF(corner, share), isColor);
          // Only a mean on the very border between two values may fall to either side.
          ASSERT_LE(Difference(built[i], expected), 1)
              << "seed " << seed << ", tile " << i << " of " << tiles.width() << " across";
        }
      }
    }
  }
}

TEST(MosaicBuilder, HeedsThePicturesColourSpace) {
  for (const auto name : {QColorSpace::DisplayP3, QColorSpace::AdobeRgb, QColorSpace::SRgb}) {
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(qRgb(90, 140, 170));
    image.setColorSpace(QColorSpace(name));
    const QRgb inSrgb = image.convertedToColorSpace(QColorSpace(QColorSpace::SRgb)).pixel(0, 0);
    EXPECT_LE(Difference(BuildAll(Picture(image), 1, 1).front(), inSrgb), 1) << name;
  }
}

TEST(MosaicBuilder, StopsWhenToldAndGivesNoColourToWhatIsClear) {
  const Picture picture(RandomImage(30, 30, QImage::Format_RGB32, 7));
  MosaicBuilder builder(picture, 3, 10, true);
  int rows = 0;
  EXPECT_FALSE(builder.Run([&](std::span<const QRgb>) { return ++rows < 4; }));
  EXPECT_EQ(rows, 4);
  QImage clear(2, 2, QImage::Format_ARGB32);
  clear.fill(Qt::transparent);
  EXPECT_EQ(BuildAll(Picture(clear), 1, 1), std::vector<QRgb>{0});
}

}  // namespace
