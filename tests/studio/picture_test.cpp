#include "studio/picture/picture.h"

#include <gtest/gtest.h>
#include <linux/capability.h>
#include <linux/landlock.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QBuffer>
#include <QImageWriter>
#include <QPainter>
#include <QProcess>
#include <QTemporaryFile>
#include <QtEndian>
#include <boost/crc.hpp>

#include "studio/base/studio_error.h"
#include "testkit/random.h"
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
  const IsStopped never = [] { return false; };
  Picture picture = Picture::Open(PictureFile::OfBytes(bytes, "a picture"), never);
  picture.Hold(never);
  return picture;
}

TEST(PictureFile, IsRefusedWhenPixelsAreMissing) {
  const QImage image = RandomImage(61, 43, QImage::Format_RGB32, 3);
  const std::pair<const char*, bool> kFormats[] = {{"jpg", false}, {"jpg", true},  {"png", false},
                                                   {"bmp", false}, {"ppm", false}, {"webp", false},
                                                   {"tif", false}};
  for (const auto& [format, isProgressive] : kFormats) {
    const QByteArray whole = Encoded(image, format, isProgressive);
    EXPECT_NO_THROW(Read(whole)) << format;
    for (const qsizetype left : {whole.size() / 20, whole.size() / 2, whole.size() - 30}) {
      EXPECT_THROW(Read(whole.left(left)), StudioError)
          << format << ": " << left << " of " << whole.size() << " bytes";
    }
  }
  const QByteArray jpeg = Encoded(image, "jpg");
  QByteArray torn = jpeg;
  EXPECT_THROW(Read(torn.remove(torn.size() / 3, torn.size() / 3)), StudioError) << "end is there";
  EXPECT_NO_THROW(Read(jpeg.chopped(2) + "stray" + jpeg.right(2))) << "no pixel is missing";
}

TEST(PictureFile, IsRefusedOrReadWhateverItsDamage) {
  constexpr const char* kFormats[] = {"png", "jpg", "bmp", "ppm", "tif", "webp"};
  for (unsigned seed = 0; seed < 60 && !HasFailure(); ++seed) {
    SCOPED_TRACE(seed);
    testkit::Random random(seed);
    const QImage image = RandomImage(21, 20, QImage::Format_RGB32, 1);
    const std::string whole = Encoded(image, testkit::Pick(random, kFormats)).toStdString();
    const std::string damaged = testkit::Once(random, 2)
                                    ? whole.substr(0, testkit::Below(random, whole.size()))
                                    : testkit::Damaged(random, whole);
    try {
      const Picture picture = Read(QByteArray::fromStdString(damaged));
      EXPECT_FALSE(picture.Pixels().isNull() || picture.SizeInPoints().isEmpty());
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
  // What is no size is unsaid.
  for (const QSize dots : {QSize(-1, 5000), QSize(5000, -1)}) {
    QImage damaged = unsaid;
    damaged.setDotsPerMeterX(dots.width());
    damaged.setDotsPerMeterY(dots.height());
    EXPECT_EQ(Picture(damaged).SizeInPoints(), QSizeF(30, 15));
  }
}

TEST(PictureFile, MeansTheSameColoursInEveryDepth) {
  const QImage image = RandomImage(31, 17, QImage::Format_ARGB32, 8);
  constexpr QImage::Format kFormats[] = {QImage::Format_RGBA64,      QImage::Format_RGBX64,
                                         QImage::Format_Indexed8,    QImage::Format_Grayscale8,
                                         QImage::Format_Grayscale16, QImage::Format_Mono,
                                         QImage::Format_RGB888};
  for (const QImage::Format format : kFormats) {
    const QImage stored = image.convertToFormat(format);
    const Picture picture = Read(Encoded(stored, "png"));
    EXPECT_EQ(picture.HasAlpha(),
              format == QImage::Format_RGBA64 || format == QImage::Format_Indexed8)
        << format;
    const QImage expected = stored.convertToFormat(picture.Pixels().format());
    EXPECT_EQ(picture.Pixels().convertToFormat(expected.format()), expected) << format;
    const auto* const line = reinterpret_cast<const QRgb*>(picture.Pixels().constScanLine(16));
    EXPECT_EQ(line[30], expected.pixel(30, 16)) << format;
  }
}

TEST(PictureFile, StandsUprightWhateverTheCameraNoted) {
  QImage image(40, 20, QImage::Format_RGB32);
  image.fill(Qt::black);
  QPainter(&image).fillRect(0, 0, 20, 10, Qt::white);
  image.setDotsPerMeterX(2000);
  image.setDotsPerMeterY(1000);
  const QByteArray jpeg = Encoded(image, "jpg");
  const QByteArray png = Encoded(image, "png");
  const QByteArray tiff = Encoded(image, "tif");
  const auto inEntry = tiff.indexOf(QByteArray("\x12\x01\x03\0\x01\0\0\0", 8)) + 8;
  QByteArray webp = Encoded(image, "webp");
  if (webp.size() % 2 != 0) webp += '\0';
  const auto number = [](char value) { return value + QByteArray(3, '\0'); };
  // Where the bright corner comes to lie, by the camera's note; 0 and 9 mean nothing.
  const QPoint kBright[] = {{5, 5}, {5, 5},  {35, 5},  {35, 15}, {5, 15},
                            {5, 5}, {15, 5}, {15, 35}, {5, 35},  {5, 5}};
  const QByteArray kNotes[] = {
      QByteArray("MM\0*\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0_\0\0\0\0\0\0", 26),
      QByteArray("II*\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0_\0\0\0\0\0\0\0", 26)};
  for (int i = 0; i < 20; ++i) {
    const int orientation = i % 10;
    QByteArray note = kNotes[i / 10];
    note[note.indexOf('_')] = char(orientation);
    // Behind the headers; in WebP behind a chunk of an odd length, which is filled up.
    const QByteArray inJpeg = QByteArray(jpeg).insert(20, QByteArray("\xFF\xE1\x00\x22"
                                                                     "Exif\0\0",
                                                                     10) +
                                                              note);
    const QByteArray chunk = "eXIf" + note;
    boost::crc_32_type checksum;
    checksum.process_bytes(chunk.data(), size_t(chunk.size()));
    QByteArray inPng = QByteArray(png).insert(33, number(0) + chunk + number(0));
    qToBigEndian(quint32(note.size()), inPng.data() + 33);
    qToBigEndian(checksum.checksum(), inPng.data() + 37 + chunk.size());
    // A header that announces EXIF, with the sides less one.
    const QByteArray header = "VP8X" + number(10) + number(8) + QByteArray("\x27\0\0\x13\0\0", 6);
    QByteArray inWebp = QByteArray(webp).insert(12, header) + "JUNK" + number(3) + number('x') +
                        "EXIF" + number(char(note.size())) + note;
    qToLittleEndian(quint32(inWebp.size() - 8), inWebp.data() + 4);
    const QByteArray inTiff =
        QByteArray(tiff).replace(inEntry, 1, QByteArray(1, char(orientation)));
    const bool isOnItsSide = orientation >= 5 && orientation <= 8;
    for (const QByteArray& bytes : {inJpeg, inPng, inWebp, inTiff}) {
      SCOPED_TRACE(testing::Message() << orientation << " in " << bytes.left(4).toStdString());
      const QImage turned = Read(bytes).Pixels();
      EXPECT_EQ(turned.size(), isOnItsSide ? QSize(20, 40) : QSize(40, 20));
      if (bytes != inWebp) {
        EXPECT_EQ(turned.dotsPerMeterX(), isOnItsSide ? 1000 : 2000);
      }
      const QRect corner(kBright[orientation] - QPoint(2, 2), QSize(5, 5));
      EXPECT_GT(qRed(turned.copy(corner).scaled(1, 1).pixel(0, 0)), 200);
    }
  }
}

TEST(PictureReader, ConfinesADecoderThatAnAttackerControls) {
  QTemporaryFile file;
  ASSERT_TRUE(file.open());
  file.write(Encoded(RandomImage(9, 9, QImage::Format_RGB32, 1), "jpg"));
  file.close();
  auto environment = QProcessEnvironment::systemEnvironment();
  environment.insert("LD_PRELOAD", HOSTILE_DECODER);
  environment.insert("ASAN_OPTIONS", "verify_asan_link_order=0");
  QProcess reader;
  reader.setProcessEnvironment(environment);
  // Only a process with this capability can restrict itself without PR_SET_NO_NEW_PRIVS.
  reader.setChildProcessModifier([] { prctl(PR_CAPBSET_DROP, CAP_SYS_ADMIN); });
  reader.setStandardInputFile(file.fileName());
  reader.start(TESSERAE_LIBRARIES "/tesserae-picture-reader", QStringList());
  ASSERT_TRUE(reader.waitForFinished());
  const bool hasLandlock =
      syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION) > 0;
  EXPECT_EQ(reader.readAllStandardOutput().mid(sizeof(PictureHeader)).toStdString(),
            std::string(hasLandlock ? "" : "reads a file\n") + "cannot start a program\n");
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
