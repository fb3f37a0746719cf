#include <gtest/gtest.h>

#include <QBuffer>
#include <QColorSpace>
#include <QRgbaFloat32>
#include <cmath>
#include <limits>

#include "studio/base/studio_error.h"
#include "studio/caller/dialog_choices.h"
#include "studio/export/mosaic_export.h"
#include "studio/mosaic/mosaic_geometry.h"
#include "studio/mosaic/mosaic_job.h"
#include "studio/mosaic/tile_colors.h"
#include "tests/support/random_picture.h"

namespace {

std::vector<QRgb> BuildAll(const Picture& picture, QSize tiles, bool isColor = true) {
  std::vector<QRgb> all;
  TileColors builder(picture, tiles.width(), tiles.height(), isColor);
  EXPECT_TRUE(builder.Run([&](std::span<const QRgb> row) {
    all.insert(all.end(), row.begin(), row.end());
    return true;
  }));
  return all;
}

/// The mean over one tile by looking at every pixel of the picture.
QRgb SlowMean(const QImage& image, const QRectF& tile, bool isColor) {
  const QColorSpace screen(QColorSpace::SRgb), light(QColorSpace::SRgbLinear);
  const QColorTransform toLight = screen.transformationToColorSpace(light);
  double red = 0, green = 0, blue = 0, opacity = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QRectF part = tile & QRectF(x, y, 1, 1);
      if (part.isEmpty()) continue;
      const auto pixel = toLight.map(QRgbaFloat32::fromArgb32(image.pixel(x, y)));
      const double weight = part.width() * part.height() * pixel.a;
      red += weight * pixel.r;
      green += weight * pixel.g;
      blue += weight * pixel.b;
      opacity += weight;
    }
  }
  const double alpha = opacity / (tile.width() * tile.height());
  if (std::lround(255 * alpha) == 0) return 0;
  if (!isColor) red = green = blue = 0.2126 * red + 0.7152 * green + 0.0722 * blue;
  const QRgbaFloat32 mean{float(red / opacity), float(green / opacity), float(blue / opacity),
                          float(alpha)};
  return light.transformationToColorSpace(screen).map(mean).toArgb32();
}

int Difference(QRgb a, QRgb b) {
  return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                   std::abs(qBlue(a) - qBlue(b)), std::abs(qAlpha(a) - qAlpha(b))});
}

TEST(TileColors, FindsTheExactMeanOfEveryShare) {
  const std::pair<QSize, QSize> kCases[] = {
      // of the picture and of the tiles
      {{1, 1}, {1, 1}},   {{1, 1}, {5, 3}},     {{7, 5}, {7, 5}},
      {{13, 11}, {1, 1}}, {{13, 11}, {5, 4}},   {{3, 2}, {10, 7}},
      {{17, 4}, {3, 9}},  {{40, 31}, {39, 30}}, {{64, 48}, {8, 6}}};
  unsigned seed = 1;
  for (const auto& [size, tiles] : kCases) {
    for (const bool isColor : {true, false}) {
      for (const auto format : {QImage::Format_RGB32, QImage::Format_ARGB32}) {
        const QImage image = RandomImage(size.width(), size.height(), format, ++seed);
        const auto built = BuildAll(Picture(image), tiles, isColor);
        ASSERT_EQ(built.size(), size_t(tiles.width() * tiles.height()));
        const double width = double(size.width()) / tiles.width();
        const double height = double(size.height()) / tiles.height();
        for (int i = 0; i < int(built.size()); ++i) {
          const QPoint tile(i % tiles.width(), i / tiles.width());
          const QRectF share(tile.x() * width, tile.y() * height, width, height);
          // Only a mean on the very border between two values may fall to either side.
          ASSERT_LE(Difference(built[size_t(i)], SlowMean(image, share, isColor)), 1)
              << "seed " << seed << ", tile " << i << " of " << tiles.width() << " across";
        }
      }
    }
  }
}

TEST(TileColors, HeedsThePicturesColourSpace) {
  for (const auto name : {QColorSpace::DisplayP3, QColorSpace::ProPhotoRgb, QColorSpace::SRgb}) {
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(qRgb(90, 140, 170));
    image.setColorSpace(QColorSpace(name));
    const QRgb inSrgb = image.convertedToColorSpace(QColorSpace(QColorSpace::SRgb)).pixel(0, 0);
    const Picture picture(image);
    EXPECT_LE(Difference(BuildAll(picture, {1, 1}).front(), inSrgb), 1) << name;
    EXPECT_EQ(picture.Pixels().pixel(0, 0), inSrgb) << name;
  }
}

TEST(MosaicJob, StopsWhenToldAndGivesNoColourToWhatIsClear) {
  const Picture picture(RandomImage(30, 30, QImage::Format_RGB32, 7));
  MosaicParameters params{};
  params.tilesAcross = params.tilesDown = 10;
  params.newWidth = params.newHeight = 30;
  for (const int last : {4, 10, 11}) {  // among the rows, after them, and after the file
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    MosaicJob job(picture, {params, {}});
    job.Add(ExportKindOf("a.svg").makeSink(file, job.Geometry(), job.Below(), 0));
    int asked = 0;
    EXPECT_FALSE(job.Run([&](int rowsDone) {
      EXPECT_EQ(rowsDone, std::min(++asked, 10));
      return asked < last;
    }));
    EXPECT_EQ(asked, last);

    Mosaic mosaic;
    MosaicJob building(picture, {params, {}});
    building.Add(mosaic);
    EXPECT_TRUE(building.Run([](int) { return true; }));
    const auto sink = ExportKindOf("a.svg").makeSink(file, mosaic.geometry, {}, 0);
    asked = 0;
    EXPECT_FALSE(WriteMosaic(mosaic, *sink, [&](int rowsDone) {
      EXPECT_EQ(rowsDone, std::min(++asked, 10));
      return asked < last;
    }));
    EXPECT_EQ(asked, last);
  }
  QImage clear(2, 2, QImage::Format_ARGB32);
  clear.fill(Qt::transparent);
  EXPECT_EQ(BuildAll(Picture(clear), {1, 1}), std::vector<QRgb>{0});
}

TEST(MosaicJob, KeepsThePictureWhereItShows) {
  const struct {
    bool isDeleted, isClear;
    int spacing;
    bool isBelow;
  } kCases[] = {{false, false, 0, false},
                {false, false, 1, true},
                {false, true, 0, true},
                {true, false, 1, false},
                {true, true, 0, false}};
  for (const auto& [isDeleted, isClear, spacing, isBelow] : kCases) {
    const QImage image =
        RandomImage(9, 9, isClear ? QImage::Format_ARGB32 : QImage::Format_RGB32, 7);
    const Picture picture(image);
    MosaicParameters params{};
    params.tilesAcross = params.tilesDown = 3;
    params.newWidth = params.newHeight = 30;
    params.tileSpacingVertical = spacing;
    params.deleteRaster = isDeleted;
    const MosaicJob job(picture, {params, {}});
    EXPECT_EQ(job.Below(), isBelow ? image : QImage()) << isDeleted << isClear << spacing;
  }
}

TEST(Choices, MakeSquareTilesOfANewPicture) {
  MosaicChoices last;
  last.params.tilesAcross = 30;
  const struct {
    QSize size;
    std::optional<MosaicChoices> last;
    int across, down;
    bool isSizeKnown;
  } kCases[] = {{{60, 40}, {}, 100, 67, true},      {{60, 40}, last, 30, 20, true},
                {{1000, 3}, last, 30, 1, true},     {{1, 300}, last, 30, 8640, true},
                {{32767, 9}, last, 30, 1, true},    {{32768, 9}, last, 30, 1, false},
                {{9, 32768}, last, 30, 8640, false}};
  for (const auto& [size, last, across, down, isSizeKnown] : kCases) {
    QImage image(size, QImage::Format_RGB32);
    image.setDotsPerMeterX(2835);
    image.setDotsPerMeterY(2835);
    const auto params = ChoicesFor(*Place("a.png", Picture(image), false), last).params;
    EXPECT_EQ(params.tilesAcross, across) << size.width();
    EXPECT_EQ(params.tilesDown, down) << size.width();
    EXPECT_EQ(params.boundsRight, isSizeKnown ? size.width() : 0);
    EXPECT_EQ(params.boundsBottom, isSizeKnown ? size.height() : 0);
    EXPECT_EQ(params.sizeUnavailable, !isSizeKnown) << size.width();
  }
}

MosaicGeometry Divide(int across, int spacing, float width, bool usePercent = false) {
  MosaicParameters params{};
  params.tilesAcross = across;
  params.tilesDown = 2;
  params.tileSpacingHorizontal = spacing;
  params.newWidth = width;
  params.newHeight = 1;
  params.boundsRight = 640;
  params.boundsBottom = 480;
  MosaicDialogState state{};
  state.usePercent = usePercent;
  return MosaicGeometry::From({params, state}, {640, 480});
}

TEST(MosaicGeometry, DividesTheNewSizeAmongTilesAndSpacing) {
  const MosaicGeometry lengths = Divide(10, 4, 100);
  EXPECT_DOUBLE_EQ(lengths.tile.width(), 6.4);
  EXPECT_DOUBLE_EQ(lengths.tile.height(), 0.5);
  EXPECT_DOUBLE_EQ(lengths.Left(9) + lengths.tile.width(), 100);
  EXPECT_TRUE(lengths.HasGaps());
  EXPECT_EQ(Divide(10, 4, 0.5f, true).size, QSizeF(320, 480));
  EXPECT_FALSE(Divide(1, 4, 10).HasGaps());
  EXPECT_EQ(Divide(1000, 0, 1).tile.width(), 0.001) << "the smallest";

  constexpr float kEndless = std::numeric_limits<float>::infinity();
  const struct {
    int across, spacing;
    float width;
  } kRefused[] = {{10, 12, 100},     {11, 10, 100}, {2, -1, 100}, {10, 0, 0},
                  {10, 0, kEndless}, {0, 0, 100},   {-5, 0, 100}, {1001, 0, 1}};
  for (const auto& [across, spacing, width] : kRefused)
    EXPECT_THROW(Divide(across, spacing, width), StudioError) << across << " " << spacing;
}

TEST(MosaicGeometry, TakesThePicturesSizeInWholePointsForItsExactSize) {
  constexpr QSizeF kExact(1160.2, 652.5);
  const struct {
    float width, height;
    bool usePercent;
    QSizeF size;
  } kCases[] = {{1160, 653, false, kExact},
                {1, 1, true, kExact},
                {1160, 652, false, {1160, 652}},
                {0.5, 1, true, {580, 653}}};
  for (const auto& [width, height, usePercent, size] : kCases) {
    MosaicChoices choices;
    choices.params.tilesAcross = choices.params.tilesDown = 9;
    choices.params.boundsRight = 1160;
    choices.params.boundsBottom = 653;
    choices.params.newWidth = width;
    choices.params.newHeight = height;
    choices.state.usePercent = usePercent;
    EXPECT_EQ(MosaicGeometry::From(choices, kExact).size, size) << width << " by " << height;
  }
}

}  // namespace
