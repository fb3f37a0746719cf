#include "studio/picture/picture.h"

#include <QColorSpace>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

#include "studio/base/studio_error.h"

namespace {

constexpr double kPointsPerInch = 72;
constexpr double kMetersPerInch = 0.0254;

/// Files store a whole number of dots per inch as a rounded number of dots per metre.
double DotsPerInch(int dotsPerMeter) {
  const double dots = dotsPerMeter * kMetersPerInch;
  const double whole = std::round(dots);
  return std::abs(dots - whole) < kMetersPerInch ? whole : dots;
}

/// A resolution of 0 or below is unknown.
QSizeF PointsOf(QSize size, int dotsPerMeterX, int dotsPerMeterY) {
  if (dotsPerMeterX <= 0 || dotsPerMeterY <= 0) return size;
  return {size.width() * kPointsPerInch / DotsPerInch(dotsPerMeterX),
          size.height() * kPointsPerInch / DotsPerInch(dotsPerMeterY)};
}

bool IsOpaque(const QImage& image) {
  for (int y = 0; y < image.height(); ++y) {
    const auto* const line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    if (std::any_of(line, line + image.width(), [](QRgb pixel) { return qAlpha(pixel) < 255; }))
      return false;
  }
  return true;
}

/// Drops an alpha channel without transparent pixels, which many programs write.
QImage InEightBits(QImage image) {
  const bool hasAlpha = image.hasAlphaChannel();
  image.convertTo(hasAlpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
  if (hasAlpha && IsOpaque(image)) image.reinterpretAsFormat(QImage::Format_RGB32);
  if (image.colorSpace().isValid()) image.convertToColorSpace(QColorSpace(QColorSpace::SRgb));
  return image;
}

}  // namespace

Picture Picture::Open(PictureFile source, const IsStopped& isStopped) {
  Picture picture;
  picture.file = std::make_shared<const PictureFile>(std::move(source));
  auto reader = std::make_unique<PictureReader>(*picture.file, isStopped);
  const PictureHeader& header = reader->Header();
  picture.size = QSize(int(header.width), int(header.height));
  picture.hasAlpha = header.channels == 4;
  picture.sizeInPoints =
      PointsOf(picture.size, int(header.dotsPerMeterX), int(header.dotsPerMeterY));
  picture.opened = std::make_shared<std::unique_ptr<PictureReader>>(std::move(reader));
  return picture;
}

Picture Picture::Read(PictureFile source, const IsStopped& isStopped) {
  Picture picture = Open(std::move(source), isStopped);
  picture.Hold(isStopped);
  return picture;
}

Picture::Picture(QImage image) : pixels(InEightBits(std::move(image))) {
  if (pixels.isNull()) throw StudioError(kNoMemory);
  size = pixels.size();
  hasAlpha = pixels.hasAlphaChannel();
  sizeInPoints = PointsOf(size, pixels.dotsPerMeterX(), pixels.dotsPerMeterY());
}

PictureRows Picture::Rows(const IsStopped& isStopped) const {
  if (IsHeld()) {
    return [image = pixels, row = 0]() mutable {
      return reinterpret_cast<const QRgb*>(std::as_const(image).constScanLine(row++));
    };
  }
  std::shared_ptr<PictureReader> reader = std::exchange(*opened, nullptr);
  if (reader) {
    reader->StopWhen(isStopped);
  } else {
    reader = std::make_shared<PictureReader>(*file, isStopped);
  }
  return [reader] { return reader->Next(); };
}

void Picture::Hold(const IsStopped& isStopped) {
  if (IsHeld()) return;
  QImage image(size, hasAlpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
  if (image.isNull()) throw StudioError(kNoMemory);
  const PictureRows nextRow = Rows(isStopped);
  for (int y = 0; y < size.height(); ++y)
    std::memcpy(image.scanLine(y), nextRow(), size_t(image.width()) * sizeof(QRgb));
  // For programs to which the picture is copied.
  const double dotsPerPoint = kPointsPerInch / kMetersPerInch;
  image.setDotsPerMeterX(qRound(size.width() / sizeInPoints.width() * dotsPerPoint));
  image.setDotsPerMeterY(qRound(size.height() / sizeInPoints.height() * dotsPerPoint));
  pixels = InEightBits(std::move(image));
  hasAlpha = pixels.hasAlphaChannel();
}
