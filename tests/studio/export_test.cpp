#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>

#include "studio/base/output.h"
#include "studio/base/studio_error.h"
#include "studio/base/text.h"
#include "studio/export/mosaic_export.h"

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

QImage RedPicture() {
  QImage picture(30, 20, QImage::Format_RGB32);
  picture.fill(Qt::red);
  return picture;
}

TEST(SvgExport, HasOneRectPerTileInRowOrderInOneGroupOverThePicture) {
  const std::string head = R"(<?xml version="1.0" encoding="UTF-8"?>
<svg xmlns="http://www.w3.org/2000/svg" width="34pt" height="42pt" viewBox="0 0 34 42">
)";
  const std::string tiles = R"(<g>
<rect x="0" y="0" width="10" height="20" fill="#123456"/>
<rect x="12" y="0" width="10" height="20" fill="#abcdef"/>
<rect x="24" y="0" width="10" height="20" fill="#ffffff"/>
<rect x="0" y="22" width="10" height="20" fill="#00ff00" fill-opacity="0.502"/>
<rect x="12" y="22" width="10" height="20" fill="#000000"/>
<rect x="24" y="22" width="10" height="20" fill="#000000" fill-opacity="0"/>
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

  const qsizetype table =
      pdf.mid(pdf.lastIndexOf("startxref") + 10).split('\n').front().toLongLong();
  ASSERT_TRUE(pdf.mid(table).startsWith("xref\n0 "));
  const QList<QByteArray> entries = pdf.mid(table).split('\n').mid(3);
  int objects = 0;
  for (; entries[objects].contains(" n"); ++objects) {
    const QByteArray head = QByteArray::number(objects + 1) + " 0 obj\n";
    EXPECT_TRUE(pdf.mid(entries[objects].left(10).toLongLong()).startsWith(head)) << objects + 1;
  }
  EXPECT_EQ(objects, 5);

  const qsizetype start = pdf.indexOf("stream\n", pdf.indexOf("FlateDecode")) + 7;
  const QByteArray content = qUncompress(QByteArray("\0\0\x10\0", 4) + pdf.mid(start));
  EXPECT_EQ(content.count(" re f"), 5) << "all but the clear tile";
  EXPECT_TRUE(content.contains("0.0706 0.2039 0.3373 rg 0 0 10 20 re f"));
  EXPECT_TRUE(content.contains("1 0 0 -1 0 42 cm\n")) << "upright";
  EXPECT_TRUE(
      content.contains("/A128 gs 0 1 0 rg 0 22 10 20 re f\n/A255 gs 0 0 0 rg 12 22 10 20 re f"));
}

TEST(Export, TellsWhenTheDiskIsFull) {
  for (const char* name : {"a.svg", "a.png", "a.pdf"}) {
    QFile full("/dev/full");
    ASSERT_TRUE(full.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    EXPECT_THROW(Write(full, name, 2, RedPicture()), StudioError) << name;
  }
}

}  // namespace
