#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>
#include <functional>
#include <vector>

#include "studio/base/output.h"
#include "studio/base/studio_error.h"
#include "studio/base/text.h"
#include "studio/export/mosaic_export.h"
#include "studio/mosaic/mosaic_job.h"
#include "tests/support/random_picture.h"

namespace {

constexpr QRgb kClear = 0;
constexpr QRgb kHalfGreen = 0x8000FF00;
constexpr QRgb kTiles[2][3] = {{0xFF123456, 0xFFABCDEF, 0xFFFFFFFF},
                               {kHalfGreen, 0xFF000000, kClear}};

/// Three by two tiles of 10 by 20 points.
void Write(QIODevice& device, const QString& name, int spacing, const QImage& below) {
  MosaicParameters params{};
  params.tilesAcross = 3;
  params.tilesDown = 2;
  params.tileSpacingHorizontal = params.tileSpacingVertical = spacing;
  params.newWidth = float(30 + 2 * spacing);
  params.newHeight = float(40 + spacing);
  const auto sink =
      ExportKindOf(name).makeSink(device, MosaicGeometry::From({params, {}}, {}), below, 0);
  for (const auto& row : kTiles) sink->AddRow(row);
  sink->Finish();
}

QByteArray Export(const QString& name, int spacing, const QImage& below = {}) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  Write(buffer, name, spacing, below);
  return buffer.data();
}

/// A mosaic of so many tiles of one colour, each by its number.
QByteArray Write(const char* ending, const MosaicGeometry& geometry, double pixelsPerPoint,
                 const std::function<QRgb(int column, int row)>& tile, const QImage& below = {}) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  const auto sink = ExportKindOf(ending).makeSink(buffer, geometry, below, pixelsPerPoint);
  for (int row = 0; row < geometry.tilesDown; ++row) {
    std::vector<QRgb> tiles;
    for (int column = 0; column < geometry.tilesAcross; ++column)
      tiles.push_back(tile(column, row));
    sink->AddRow(tiles);
  }
  sink->Finish();
  return buffer.data();
}

/// Tiles of this size that touch.
MosaicGeometry Touching(int across, int down, QSizeF tile) {
  return {across, down, {across * tile.width(), down * tile.height()}, {0, 0}, tile};
}

/// What is compressed in a PDF document, one piece behind another.
QByteArray Unpacked(const QByteArray& pdf) {
  QByteArray content;
  for (qsizetype at = 0; (at = pdf.indexOf("FlateDecode", at)) >= 0;) {
    at = pdf.indexOf("stream\n", at) + 7;
    if (at < 7) break;
    content += qUncompress(QByteArray("\0\x10\0\0", 4) + pdf.mid(at));
  }
  return content;
}

QImage RedPicture() {
  QImage picture(30, 20, QImage::Format_RGB32);
  picture.fill(Qt::red);
  return picture;
}

TEST(SvgExport, HasOneRectPerVisibleTileInRowOrderInOneGroupOverThePicture) {
  const std::string head = R"(<?xml version="1.0" encoding="UTF-8"?>
<svg xmlns="http://www.w3.org/2000/svg" width="34pt" height="42pt" viewBox="0 0 34 42">
)";
  const std::string tiles = R"(<g>
<rect x="0" y="0" width="10" height="20" fill="#123456"/>
<rect x="12" y="0" width="10" height="20" fill="#abcdef"/>
<rect x="24" y="0" width="10" height="20" fill="#ffffff"/>
<rect x="0" y="22" width="10" height="20" fill="#00ff00" fill-opacity="0.502"/>
<rect x="12" y="22" width="10" height="20" fill="#000000"/>
</g>
</svg>
)";
  EXPECT_EQ(Export("a.svg", 2).toStdString(), head + tiles);
  const QByteArray svg = Export("a.svg", 2, RedPicture());
  EXPECT_TRUE(svg.endsWith("\"/>\n" + QByteArray::fromStdString(tiles)));
  const qsizetype start = svg.indexOf("data:image/jpeg;base64,") + 23;
  const QByteArray embedded = svg.mid(start, svg.indexOf('"', start) - start);
  EXPECT_EQ(QImage::fromData(QByteArray::fromBase64(embedded)).size(), QSize(30, 20));
}

TEST(SvgExport, HasSharpEdgesWhereTilesTouch) {
  const struct {
    int across, spacingAcross, spacingDown;
    bool isSharp;
  } kCases[] = {
      {3, 0, 0, true}, {3, 0, 2, true}, {3, 2, 0, true}, {3, 2, 2, false}, {1, 0, 2, false}};
  for (const auto& [across, spacingAcross, spacingDown, isSharp] : kCases) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    const MosaicGeometry geometry{
        across, 2, {90, 90}, QSizeF(spacingAcross, spacingDown), {10, 10}};
    ExportKindOf("a.svg").makeSink(buffer, geometry, {}, 0)->Finish();
    EXPECT_EQ(buffer.data().contains("crispEdges"), isSharp) << spacingAcross << spacingDown;
  }
}

TEST(SvgExport, WritesNumbersShort) {
  std::string texts;
  for (const double value :
       {0.0, 10.0, 0.5, 1.0 / 3, 0.00004, -0.00004, -2.25, 0.001, 8640.12346}) {
    texts += NumberText(value) + " ";
  }
  EXPECT_EQ(texts, "0 10 0.5 0.3333 0 0 -2.25 0.001 8640.1235 ");
}

TEST(PngExport, ShowsTilesWithoutSeamsAndGapsThatAreClear) {
  QImage image = QImage::fromData(Export("a.PNG", 0));
  ASSERT_FALSE(image.isNull());
  const auto at = [&](double x, double y, QSizeF size) {
    return image.pixel(int(x * image.width() / size.width()),
                       int(y * image.height() / size.height()));
  };
  for (int row = 0; row < 2; ++row) {
    for (int column = 0; column < 3; ++column) {
      EXPECT_EQ(at(10 * column + 5, 20 * row + 10, {30, 40}), kTiles[row][column]);
    }
  }
  for (int x = 0; x < image.width(); ++x) {
    ASSERT_EQ(qAlpha(image.pixel(x, image.height() / 4)), 255) << "seam at " << x;
  }
  EXPECT_NEAR(image.width() * 72 / 0.0254 / image.dotsPerMeterX(), 30, 0.1);

  image = QImage::fromData(Export("a.png", 2));
  EXPECT_EQ(at(11, 10, {34, 42}), kClear);
  image = QImage::fromData(Export("a.png", 2, RedPicture()));
  EXPECT_EQ(at(11, 10, {34, 42}), qRgb(255, 0, 0));
  EXPECT_EQ(at(5, 10, {34, 42}), kTiles[0][0]);
}

TEST(PdfExport, IsOnePageWithATableThatFindsItsObjects) {
  const QByteArray pdf = Export("a.pdf", 2, RedPicture());
  EXPECT_TRUE(pdf.contains("/MediaBox [0 0 34 42]"));
  EXPECT_TRUE(pdf.contains("/Filter /DCTDecode"));
  EXPECT_FALSE(Export("a.pdf", 2).contains("/Picture")) << "where none shows";

  const qsizetype table =
      pdf.mid(pdf.lastIndexOf("startxref") + 10).split('\n').front().toLongLong();
  ASSERT_TRUE(pdf.mid(table).startsWith("xref\n0 "));
  const QList<QByteArray> entries = pdf.mid(table).split('\n').mid(3);
  int objects = 0;
  for (; entries[objects].contains(" n"); ++objects) {
    const QByteArray head = QByteArray::number(objects + 1) + " 0 obj\n";
    EXPECT_TRUE(pdf.mid(entries[objects].left(10).toLongLong()).startsWith(head)) << objects + 1;
  }
  EXPECT_EQ(objects, 6);

  QBuffer named;
  named.setObjectName("/a/Größe 1.2.pdf");
  named.open(QIODevice::WriteOnly);
  Write(named, "a.pdf", 2, {});
  EXPECT_TRUE(named.data().contains("/Title <FEFF0047007200F600DF006500200031002E0032>"));

  const QByteArray content = Unpacked(pdf);
  EXPECT_EQ(content.count(" re f"), 5) << "all but the clear tile";
  EXPECT_TRUE(content.contains("0.0706 0.2039 0.3373 rg 0 0 10 20 re f"));
  EXPECT_TRUE(content.contains("1 0 0 -1 0 42 cm\n")) << "upright";
  EXPECT_TRUE(
      content.contains("/A128 gs 0 1 0 rg 0 22 10 20 re f\n/A255 gs 0 0 0 rg 12 22 10 20 re f"));
}

TEST(PngExport, IsAsLargeAsItsTilesWant) {
  const struct {
    MosaicGeometry geometry;
    QSize pixels;
    const char* why;
  } kCases[] = {
      {Touching(4, 2, {10, 10}), {1600, 800}, "large enough to be looked at"},
      {Touching(3, 1, {10, 10}), {1602, 534}, "a whole number of pixels a tile"},
      {Touching(1000, 2, {1, 2}), {4000, 16}, "four pixels a tile at least"},
      {Touching(1000, 2, {2, 1}), {8000, 8}, "in the shorter direction"},
      {{2, 1, {50, 10}, {10, 0}, {20, 10}}, {1600, 320}, "from tile to tile with the gap"},
      {Touching(4000, 4000, {1, 1}), {8000, 8000}, "64 million pixels"},
      {Touching(9000, 9000, {1, 1}), {9000, 9000}, "unless there are more tiles"},
      {Touching(9000, 2, {1, 1}), {32000, 7}, "32 000 pixels a side"},
      {Touching(16000, 16000, {1, 1}), {16000, 16000}, "256 million pixels"},
  };
  for (const auto& [geometry, pixels, why] : kCases)
    EXPECT_EQ((geometry.size * PngScale(geometry)).toSize(), pixels) << why;
  for (const auto& [across, down] : {std::pair(32001, 1), {1, 32001}, {16001, 16000}})
    EXPECT_THROW(PngScale(Touching(across, down, {3, 3})), StudioError) << across;
  const auto black = [](int, int) { return 0xFF000000; };
  const QImage longest = QImage::fromData(Write(".png", Touching(1, 1, {40000, 1}), 9, black));
  EXPECT_EQ(longest.size(), QSize(32000, 1)) << "the most that there can be";
  EXPECT_DOUBLE_EQ(MostPngScale({100, 100}), 160);
}

TEST(PngExport, MixesTheLightOfTilesThatShareAPixel) {
  const auto checkers = [](int column, int row) {
    return (column + row) % 2 ? 0xFFFFFFFF : 0xFF000000;
  };
  // Half the light of white is this grey, three eighths the other one.
  for (const double scale : {0.25, 0.5, 0.75, 1.5}) {
    const QImage image = QImage::fromData(Write(".png", Touching(4, 4, {1, 1}), scale, checkers));
    ASSERT_EQ(image.size(), QSize(4, 4) * scale);
    EXPECT_FALSE(image.hasAlphaChannel()) << scale;
    EXPECT_EQ(image.pixel(scale > 1, 0), scale == 0.75 ? 0xFFA5A5A5 : 0xFFBCBCBC) << scale;
  }
}

TEST(Export, OfManyTilesIsWhole) {
  const auto tile = [](int column, int row) { return qRgb(row, column / 256, column % 256); };
  const MosaicGeometry geometry = Touching(1000, 20, {1, 1});
  const QByteArray svg = Write(".svg", geometry, 0, tile);
  const QByteArray content = Unpacked(Write(".pdf", geometry, 0, tile));
  EXPECT_EQ(svg.count("<rect "), 20000);
  EXPECT_EQ(content.count(" re f\n"), 20000);
  for (int row = 0; row < 20; ++row) {
    const QByteArray number = QByteArray::number(row);
    EXPECT_EQ(svg.count("\" y=\"" + number + "\" width"), 1000) << row;
    EXPECT_EQ(content.count(" " + number + " 1 1 re f\n"), 1000) << row;
  }
  EXPECT_TRUE(svg.endsWith("fill=\"#1303e7\"/>\n</g>\n</svg>\n"));
}

TEST(Export, IsEstimatedFromAFewRows) {
  Mosaic mosaic{Touching(200, 300, {1, 1}), RandomImage(200, 300, QImage::Format_ARGB32, 1), {}};
  for (const char* ending : {".svg", ".pdf", ".svg", ".pdf"}) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    const auto sink = ExportKindOf(ending).makeSink(buffer, mosaic.geometry, mosaic.below, 0);
    ASSERT_TRUE(WriteMosaic(mosaic, *sink, [](int) { return true; }));
    const double estimate = EstimatedBytes(mosaic, ExportKindOf(ending));
    EXPECT_NEAR(estimate / double(buffer.size()), 1, 0.25) << ending;
    if (ending == QByteArray(".pdf"))
      mosaic.below = RandomImage(2000, 1500, QImage::Format_RGB32, 2);
  }
  EXPECT_EQ(EstimatedBytes(mosaic, ExportKindOf(".png"), 10), 4.0 * 2000 * 3000);
}

TEST(Export, ShowsAClearPictureBelowTheTiles) {
  QImage below(40, 20, QImage::Format_ARGB32);
  below.fill(Qt::transparent);
  const auto clear = [](int, int) { return kClear; };
  const QByteArray svg = Write(".svg", Touching(2, 1, {20, 20}), 0, clear, below);
  const qsizetype start = svg.indexOf("data:image/png;base64,") + 22;
  ASSERT_GE(start, 22);
  const QImage inSvg =
      QImage::fromData(QByteArray::fromBase64(svg.mid(start, svg.indexOf('"', start) - start)));
  EXPECT_EQ(inSvg.convertToFormat(QImage::Format_ARGB32), below);

  const QByteArray pdf = Write(".pdf", Touching(2, 1, {20, 20}), 0, clear, below);
  const QImage onPaper =
      QImage::fromData(pdf.mid(pdf.indexOf("stream\n", pdf.indexOf("DCTDecode")) + 7));
  EXPECT_EQ(onPaper.pixel(20, 10), 0xFFFFFFFF) << "what is clear is the paper's white";
}

TEST(Export, TellsWhenTheDiskIsFull) {
  for (const char* name : {"a.svg", "a.png", "a.pdf"}) {
    QFile full("/dev/full");
    ASSERT_TRUE(full.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    full.setObjectName("full");
    try {
      Write(full, name, 2, RedPicture());
      ADD_FAILURE() << name;
    } catch (const StudioError& error) {
      EXPECT_STREQ(error.what(), "cannot write full: the disk is full") << name;
    }
  }
}

}  // namespace
