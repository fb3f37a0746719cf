#include "studio/picture/picture.h"

#include <QBuffer>
#include <QImageReader>
#include <QTransform>
#include <algorithm>
#include <cmath>
#include <utility>

#include "studio/base/file_name.h"
#include "studio/base/studio_error.h"
#include "studio/picture/damage.h"
#include "studio/picture/exif.h"
#include "studio/picture/svg.h"

namespace {

// 72 dots per inch: a dot a point, for files that say nothing.
constexpr int kUnsaidDotsPerMeter = 2835;
constexpr double kMetersPerInch = 0.0254;

// Room for photographs of half a gigapixel; beyond that a small file can take all memory.
constexpr int kMegabytesLimit = 2048;
constexpr int kBitsPerPixel = 32;  // of a picture, whatever its file has

bool Fits(QSize size, int bitsPerPixel) {
  const qint64 mostPixels = (qint64(kMegabytesLimit) << 20) * 8 / bitsPerPixel;
  return qint64(size.width()) * size.height() <= mostPixels;
}

/// Decoders tell whole numbers of dots per metre, some rounded and some cut off, so one that was a
/// whole number of dots per inch in the file comes back as that number.
double DotsPerInch(int dotsPerMeter) {
  const double dots = dotsPerMeter * kMetersPerInch;
  const double whole = std::round(dots);
  return std::abs(dots - whole) < kMetersPerInch ? whole : dots;
}

QByteArray ReadPictureFile(const QString& path) {
  std::error_code error;
  const auto type = status(SystemPath(path), error).type();
  if (type == std::filesystem::file_type::not_found)
    throw StudioError("$$$/Studio/Picture/None=there is no picture %1", path);
  if (type != std::filesystem::file_type::regular && !error)
    throw StudioError("$$$/Studio/Picture/NoFile=%1 is not a file", path);
  QByteArray bytes;
  try {
    bytes = ReadFile(path, qint64(kMegabytesLimit) << 20);
  } catch (const StudioError& reason) {
    throw StudioError("$$$/Studio/Picture/Unreadable=the picture %1 cannot be read: %2", path,
                      QString(reason.what()));
  }
  if (bytes.isEmpty()) throw StudioError("$$$/Studio/Picture/Empty=the picture %1 is empty", path);
  return bytes;
}

[[noreturn]] void RefuseUndecodable(const QString& path) {
  throw StudioError("$$$/Studio/Picture/Undecodable=the picture %1 is damaged or too large", path);
}

void SetDotsPerMeter(QImage& image, int across, int down) {
  image.setDotsPerMeterX(across);
  image.setDotsPerMeterY(down);
}

/// Qt gives an image of unsaid resolution that of the screen. An image that is made beforehand is
/// filled by the decoder and keeps what it has instead. Formats that need an image of their own
/// carry no resolution.
QImage Decode(QImageReader& reader) {
  const QSize size = reader.size();
  const QImage::Format format = reader.imageFormat();
  const bool fits = size.isValid() && format != QImage::Format_Invalid &&
                    Fits(size, QImage::toPixelFormat(format).bitsPerPixel());
  QImage image = fits ? QImage(size, format) : QImage();
  SetDotsPerMeter(image, kUnsaidDotsPerMeter, kUnsaidDotsPerMeter);
  const uchar* const bits = std::as_const(image).constBits();
  if (!reader.read(&image)) return {};
  if (std::as_const(image).constBits() != bits) {
    SetDotsPerMeter(image, kUnsaidDotsPerMeter, kUnsaidDotsPerMeter);
  }
  return image;
}

/// Turns and mirrors as the camera noted; the resolutions change places with the sides.
QImage Upright(QImage image, QImageIOHandler::Transformations how) {
  if (how & (QImageIOHandler::TransformationMirror | QImageIOHandler::TransformationFlip)) {
    image = std::move(image).mirrored(how & QImageIOHandler::TransformationMirror,
                                      how & QImageIOHandler::TransformationFlip);
  }
  if (how & QImageIOHandler::TransformationRotate90) {
    const int across = image.dotsPerMeterX();
    const int down = image.dotsPerMeterY();
    image = image.transformed(QTransform().rotate(90));
    SetDotsPerMeter(image, down, across);
  }
  return image;
}

bool IsOpaque(const QImage& image) {
  for (int y = 0; y < image.height(); ++y) {
    const auto* const line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    if (std::any_of(line, line + image.width(), [](QRgb pixel) { return qAlpha(pixel) < 255; })) {
      return false;
    }
  }
  return true;
}

/// Many programs give every picture an alpha channel; one that says nothing is left out.
QImage InEightBits(QImage image) {
  if (!image.hasAlphaChannel()) return std::move(image).convertToFormat(QImage::Format_RGB32);
  image = std::move(image).convertToFormat(QImage::Format_ARGB32);
  if (IsOpaque(image)) image.reinterpretAsFormat(QImage::Format_RGB32);
  return image;
}

}  // namespace

Picture Picture::Read(const QString& path, const std::function<bool()>& isStopped) {
  QByteArray bytes = ReadPictureFile(path);
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::ReadOnly);

  const DecoderMessages messages;
  QImageReader::setAllocationLimit(kMegabytesLimit);
  QImageReader reader(&buffer);
  reader.setAutoTransform(false);
  if (!reader.canRead()) {
    throw StudioError(
        "$$$/Studio/Picture/Unknown=%1 is no picture that can be read, or it is damaged", path);
  }
  const QByteArray format = reader.format();
  if (!IsCompleteFile(format, bytes)) {
    throw StudioError(
        "$$$/Studio/Picture/CutShort=the picture %1 is cut short: the file ends before the picture",
        path);
  }
  if (format == "jpeg" && HasAbsurdScans(bytes, reader.size())) RefuseUndecodable(path);
  QImage image = IsSvg(format) ? DrawSvg(bytes, path, isStopped) : Decode(reader);
  if (image.isNull() || !Fits(image.size(), kBitsPerPixel)) RefuseUndecodable(path);
  if (messages.TellOfDamage()) {
    throw StudioError("$$$/Studio/Picture/Damaged=the picture %1 is damaged", path);
  }
  return Picture(Upright(std::move(image), reader.transformation() | NotedTurn(format, bytes)));
}

Picture::Picture(QImage image) : pixels(InEightBits(std::move(image))) {
  if (pixels.isNull()) throw StudioError(kNoMemory);
  // A damaged file can state a resolution of 0 or below, and so can whoever filled the clipboard.
  if (pixels.dotsPerMeterX() <= 0 || pixels.dotsPerMeterY() <= 0)
    SetDotsPerMeter(pixels, kUnsaidDotsPerMeter, kUnsaidDotsPerMeter);
}

const QImage& Picture::PixelsInSrgb() const {
  if (pixelsInSrgb.isNull()) {
    pixelsInSrgb = ColorSpace().isValid()
                       ? pixels.convertedToColorSpace(QColorSpace(QColorSpace::SRgb))
                       : pixels;
  }
  if (pixelsInSrgb.isNull()) throw StudioError(kNoMemory);
  return pixelsInSrgb;
}

QSizeF Picture::SizeInPoints() const {
  if (!setSize.isEmpty()) return setSize;
  return {pixels.width() * 72 / DotsPerInch(pixels.dotsPerMeterX()),
          pixels.height() * 72 / DotsPerInch(pixels.dotsPerMeterY())};
}
