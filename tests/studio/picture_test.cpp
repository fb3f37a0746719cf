#include "studio/picture/picture.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>
#include <QImageWriter>
#include <QPainter>
#include <QTemporaryDir>

#include "check/random.h"
#include "studio/base/studio_error.h"
#include "tests/support/random_picture.h"

namespace {

QByteArray Encoded(const QImage& image, const char* format, bool isProgressive = false) {
  QBuffer buffer;
  QImageWriter writer(&buffer, format);
  writer.setProgressiveScanWrite(isProgressive);
  EXPECT_TRUE(writer.write(image)) << format;
  return buffer.data();
}

Picture Read(const QByteArray& bytes) {
  const QTemporaryDir folder;
  QFile file(folder.filePath("picture"));
  EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(bytes);
  file.close();
  return Picture::Read(file.fileName());
}

TEST(PictureFile, IsRefusedWhenAnyOfItIsMissing) {
  const QImage image = RandomImage(61, 43, QImage::Format_RGB32, 3);
  const std::pair<const char*, bool> kFormats[] = {
      {"jpg", false}, {"jpg", true}, {"png", false}, {"bmp", false}, {"ppm", false}};
  for (const auto& [format, isProgressive] : kFormats) {
    const QByteArray whole = Encoded(image, format, isProgressive);
    EXPECT_NO_THROW(Read(whole)) << format;
    for (const qsizetype missing : {qsizetype(1), qsizetype(2), qsizetype(5), whole.size() / 3,
                                    whole.size() / 2, whole.size() - 30, whole.size() - 1}) {
      EXPECT_THROW(Read(whole.chopped(missing)), StudioError)
          << format << ": " << missing << " of " << whole.size() << " bytes missing";
    }
  }
  // One pixel. Cut anywhere, it may end in the very byte that marks the end.
  const QByteArray gif =
      QByteArray::fromBase64("R0lGODlhAQABAIAAAP///wAAACH5BAEAAAAALAAAAAABAAEAAAICRAEAOw==");
  EXPECT_NO_THROW(Read(gif + '\n')) << "whatever stands behind the end";
  for (qsizetype size = 13; size < gif.size() - 1; ++size) {
    EXPECT_THROW(Read(gif.left(size) + ';'), StudioError) << "gif of " << size;
  }
  QByteArray torn = Encoded(image, "jpg");
  EXPECT_THROW(Read(torn.remove(torn.size() / 3, torn.size() / 3)), StudioError) << "end is there";
}

TEST(PictureFile, IsRefusedOrReadWhateverItsDamage) {
  constexpr const char* kFormats[] = {"png", "jpg", "bmp", "ppm"};
  for (unsigned seed = 0; seed < 1000 && !HasFailure(); ++seed) {
    SCOPED_TRACE(seed);
    check::Random random(seed);
    const QImage image = RandomImage(21, 20, QImage::Format_RGB32, 1);
    const std::string whole = Encoded(image, check::Pick(random, kFormats)).toStdString();
    const bool isCut = check::Once(random, 2);
    const std::string damaged =
        isCut ? whole.substr(0, check::Below(random, whole.size())) : check::Damaged(random, whole);
    try {
      const Picture picture = Read(QByteArray::fromStdString(damaged));
      EXPECT_FALSE(isCut || picture.Pixels().isNull() || picture.SizeInPoints().isEmpty());
    } catch (const StudioError& refusal) {
      EXPECT_STRNE(refusal.what(), "");
    }
  }
}

TEST(PictureFile, LiesOnThePageAsLargeAsItSays) {
  for (const int dotsPerInch : {72, 96, 150, 240, 300}) {
    QImage image(dotsPerInch, 2 * dotsPerInch, QImage::Format_RGB32);
    image.fill(Qt::white);
    image.setDotsPerMeterX(qRound(dotsPerInch / 0.0254));
    image.setDotsPerMeterY(image.dotsPerMeterX());
    for (const char* format : {"png", "jpg"}) {
      const QSizeF size = Read(Encoded(image, format)).SizeInPoints();
      EXPECT_EQ(size, QSizeF(72, 144)) << format << " of " << dotsPerInch;
    }
  }
  // This format cannot say, so a dot is a point.
  const QImage unsaid = RandomImage(30, 15, QImage::Format_RGB32, 5);
  EXPECT_EQ(Read(Encoded(unsaid, "ppm")).SizeInPoints(), QSizeF(30, 15));
}

TEST(PictureFile, StandsUprightWhateverTheCameraNoted) {
  QImage image(40, 20, QImage::Format_RGB32);
  image.fill(Qt::black);
  QPainter(&image).fillRect(0, 0, 20, 10, Qt::white);
  image.setDotsPerMeterX(2000);
  image.setDotsPerMeterY(1000);
  const QByteArray bytes = Encoded(image, "jpg");
  const QByteArray png = Encoded(image, "png");
  // Where the bright corner comes to lie, by the camera's note from 1 to 8.
  const QPoint kBright[] = {{5, 5}, {35, 5}, {35, 15}, {5, 15}, {5, 5}, {15, 5}, {15, 35}, {5, 35}};
  for (int orientation = 1; orientation <= 8; ++orientation) {
    SCOPED_TRACE(orientation);
    QByteArray note(
        "\xFF\xE1\x00\x22"
        "Exif\0\0MM\0*\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0_\0\0\0\0\0\0",
        36);
    note[note.indexOf('_')] = char(orientation);
    constexpr qsizetype kAfterJfifHeader = 20;
    const QImage turned = Read(QByteArray(bytes).insert(kAfterJfifHeader, note)).Pixels();
    // A PNG chunk has the note without the marker, its length and the word before it.
    QByteArray chunk = QByteArray(
                           "\0\0\0\x1A"
                           "eXIf",
                           8) +
                       note.mid(10) + QByteArray(4, '\0');
    constexpr qsizetype kAfterPngHeader = 33;
    EXPECT_EQ(Read(png.left(kAfterPngHeader) + chunk + png.mid(kAfterPngHeader))
                  .Pixels()
                  .pixel(kBright[orientation - 1]),
              0xFFFFFFFF);
    const bool isOnItsSide = orientation >= 5;
    EXPECT_EQ(turned.size(), isOnItsSide ? QSize(20, 40) : QSize(40, 20));
    EXPECT_EQ(turned.dotsPerMeterX(), isOnItsSide ? 1000 : 2000);
    const QRect corner(kBright[orientation - 1] - QPoint(2, 2), QSize(5, 5));
    EXPECT_GT(qRed(turned.copy(corner).scaled(1, 1).pixel(0, 0)), 200);
  }
}

TEST(Picture, IsTransparentOnlyWhereSomePixelIs) {
  QImage image = RandomImage(30, 20, QImage::Format_ARGB32, 3);
  EXPECT_TRUE(Picture(image).HasAlpha());
  for (int y = 0; y < 20; ++y) {
    for (int x = 0; x < 30; ++x) image.setPixel(x, y, image.pixel(x, y) | 0xFF000000);
  }
  EXPECT_FALSE(Picture(image).HasAlpha());
  image.setPixel(29, 19, 0xFE000000);
  EXPECT_TRUE(Picture(image).HasAlpha());
}

}  // namespace
