#include "studio/picture.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>
#include <QImageWriter>
#include <QLineF>
#include <QTemporaryDir>

#include "studio/studio_error.h"
#include "tests/studio/random_picture.h"

namespace {

QByteArray Encoded(const QImage& image, const char* format, bool isProgressive = false) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, format);
  writer.setProgressiveScanWrite(isProgressive);
  EXPECT_TRUE(writer.write(image)) << format;
  return bytes;
}

class PictureFile : public testing::Test {
 protected:
  QString Save(const QByteArray& bytes) {
    QFile file(folder.filePath("picture"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    return file.fileName();
  }

  std::string WhyNot(const QByteArray& bytes) {
    try {
      Picture::Read(Save(bytes));
      return {};
    } catch (const StudioError& error) {
      return error.what();
    }
  }

  QTemporaryDir folder;
};

TEST_F(PictureFile, IsRefusedWhenAnyOfItIsMissing) {
  const QImage image = RandomImage(61, 43, QImage::Format_RGB32, 3);
  const struct {
    const char* format;
    bool isProgressive;
  } kFormats[] = {{"jpg", false}, {"jpg", true}, {"png", false}, {"bmp", false}, {"ppm", false}};
  for (const auto& [format, isProgressive] : kFormats) {
    const QByteArray whole = Encoded(image, format, isProgressive);
    EXPECT_EQ(WhyNot(whole), "") << format;
    for (const qsizetype missing : {qsizetype(1), qsizetype(2), qsizetype(5), whole.size() / 3,
                                    whole.size() / 2, whole.size() - 30, whole.size() - 1}) {
      EXPECT_NE(WhyNot(whole.chopped(missing)), "")
          << format << ": " << missing << " of " << whole.size() << " bytes missing";
    }
  }
}

TEST_F(PictureFile, IsRefusedWhenItIsNone) {
  EXPECT_NE(WhyNot(""), "");
  EXPECT_NE(WhyNot("Dear diary, today I drew a picture."), "");
  QByteArray damaged = Encoded(RandomImage(61, 43, QImage::Format_RGB32, 3), "png");
  for (qsizetype i = 100; i < 160; ++i) damaged[i] = char(~damaged[i]);
  EXPECT_NE(WhyNot(damaged), "");
  QByteArray torn = Encoded(RandomImage(61, 43, QImage::Format_RGB32, 3), "jpg");
  EXPECT_NE(WhyNot(torn.remove(torn.size() / 3, torn.size() / 3)), "") << "the end is there";
  EXPECT_THROW(Picture::Read(folder.filePath("nothing here")), StudioError);
  EXPECT_THROW(Picture::Read(folder.path()), StudioError);
}

TEST_F(PictureFile, LiesOnThePageAsLargeAsItSays) {
  QImage image(300, 150, QImage::Format_RGB32);
  image.fill(Qt::white);
  image.setDotsPerMeterX(11811);  // 300 per inch
  image.setDotsPerMeterY(5906);   // 150 per inch
  for (const char* format : {"png", "jpg"}) {
    const QSizeF size = Picture::Read(Save(Encoded(image, format))).SizeInPoints();
    EXPECT_LT(QLineF(0, 0, size.width() - 72, size.height() - 72).length(), 0.01) << format;
  }
  // This format cannot say, so a dot is a point.
  EXPECT_EQ(Picture::Read(Save(Encoded(image, "ppm"))).SizeInPoints(), QSizeF(300, 150));
}

TEST_F(PictureFile, StandsUprightWhateverTheCameraNoted) {
  QImage image(40, 20, QImage::Format_RGB32);
  image.fill(Qt::black);
  for (int y = 0; y < 10; ++y) {
    for (int x = 0; x < 20; ++x) image.setPixel(x, y, qRgb(255, 255, 255));  // top left is bright
  }
  image.setDotsPerMeterX(2000);
  image.setDotsPerMeterY(1000);
  const struct {
    char orientation;
    QSize size;
    QPoint bright;
  } kCases[] = {{1, {40, 20}, {5, 5}},   {2, {40, 20}, {35, 5}}, {3, {40, 20}, {35, 15}},
                {4, {40, 20}, {5, 15}},  {5, {20, 40}, {5, 5}},  {6, {20, 40}, {15, 5}},
                {7, {20, 40}, {15, 35}}, {8, {20, 40}, {5, 35}}};
  for (const auto& [orientation, size, bright] : kCases) {
    QByteArray note(
        "\xFF\xE1\x00\x22"
        "Exif\0\0MM\0*\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0_\0\0\0\0\0\0",
        36);
    note[note.indexOf('_')] = orientation;
    QByteArray bytes = Encoded(image, "jpg");
    constexpr qsizetype kAfterJfifHeader = 20;
    const Picture picture = Picture::Read(Save(bytes.insert(kAfterJfifHeader, note)));
    const QImage corners = picture.Pixels().copy({bright - QPoint(2, 2), QSize(5, 5)});
    EXPECT_EQ(picture.Pixels().size(), size) << int(orientation);
    EXPECT_GT(qRed(corners.scaled(1, 1).pixel(0, 0)), 200) << int(orientation);
    const bool isOnItsSide = orientation >= 5;
    EXPECT_EQ(picture.Pixels().dotsPerMeterX(), isOnItsSide ? 1000 : 2000) << int(orientation);
  }
}

}  // namespace
