#include "studio/picture/picture.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

#include "studio/base/studio_error.h"

namespace {

// 72 dots per inch: a dot a point, for files that say nothing.
constexpr int kUnsaidDotsPerMeter = 2835;
constexpr double kMetersPerInch = 0.0254;

/// A resolution of a whole number of dots per inch comes as a rounded number of dots per metre.
double DotsPerInch(int dotsPerMeter) {
  const double dots = dotsPerMeter * kMetersPerInch;
  const double whole = std::round(dots);
  return std::abs(dots - whole) < kMetersPerInch ? whole : dots;
}

QSize OrUnsaid(QSize dotsPerMeter) {
  return dotsPerMeter.isEmpty() ? QSize(kUnsaidDotsPerMeter, kUnsaidDotsPerMeter) : dotsPerMeter;
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

/// Many programs give every picture an alpha channel; an opaque one is left out.
QImage InEightBits(QImage image) {
  if (!image.hasAlphaChannel()) return std::move(image).convertToFormat(QImage::Format_RGB32);
  image = std::move(image).convertToFormat(QImage::Format_ARGB32);
  if (IsOpaque(image)) image.reinterpretAsFormat(QImage::Format_RGB32);
  return image;
}

class HeldRows final : public PictureRows {
 public:
  explicit HeldRows(const QImage& image) : image(image) {}

  const QRgb* Next() override {
    return reinterpret_cast<const QRgb*>(std::as_const(image).constScanLine(row++));
  }

 private:
  const QImage image;
  int row = 0;
};

}  // namespace

Picture Picture::Open(PictureFile source, const IsStopped& isStopped) {
  Picture picture;
  picture.file = std::make_shared<const PictureFile>(std::move(source));
  auto reader = std::make_unique<PictureReader>(*picture.file, false, isStopped);
  if (!reader->Profile().isEmpty()) {
    picture.space = QColorSpace::fromIccProfile(reader->Profile());
    if (!picture.space.isValid()) {
      picture.converts = true;
      reader = std::make_unique<PictureReader>(*picture.file, true, isStopped);
    }
  }
  const PictureHeader& header = reader->Header();
  picture.size = QSize(int(header.width), int(header.height));
  picture.hasAlpha = header.channels == 4;
  picture.dotsPerMeter = OrUnsaid(QSize(int(header.dotsPerMeterX), int(header.dotsPerMeterY)));
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
  hasAlpha = pixels.format() == QImage::Format_ARGB32;
  space = pixels.colorSpace();
  // A program that fills the clipboard can state a resolution of 0 or below.
  dotsPerMeter = OrUnsaid(QSize(pixels.dotsPerMeterX(), pixels.dotsPerMeterY()));
}

std::unique_ptr<PictureRows> Picture::Rows(const IsStopped& isStopped) const {
  if (IsHeld()) return std::make_unique<HeldRows>(pixels);
  auto reader = std::exchange(*opened, nullptr);
  if (!reader) return std::make_unique<PictureReader>(*file, converts, isStopped);
  reader->StopWhen(isStopped);
  return reader;
}

void Picture::Hold(const IsStopped& isStopped) {
  if (IsHeld()) return;
  QImage image(size, hasAlpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
  if (image.isNull()) throw StudioError(kNoMemory);
  const auto rows = Rows(isStopped);
  for (int y = 0; y < size.height(); ++y)
    std::memcpy(image.scanLine(y), rows->Next(), size_t(image.width()) * sizeof(QRgb));
  image.setColorSpace(space);
  image.setDotsPerMeterX(dotsPerMeter.width());
  image.setDotsPerMeterY(dotsPerMeter.height());
  pixels = InEightBits(std::move(image));
  hasAlpha = pixels.format() == QImage::Format_ARGB32;
}

const QImage& Picture::PixelsInSrgb() const {
  if (pixelsInSrgb.isNull()) {
    pixelsInSrgb = pixels.colorSpace().isValid()
                       ? pixels.convertedToColorSpace(QColorSpace(QColorSpace::SRgb))
                       : pixels;
  }
  if (pixelsInSrgb.isNull()) throw StudioError(kNoMemory);
  return pixelsInSrgb;
}

QSizeF Picture::SizeInPoints() const {
  if (!setSize.isEmpty()) return setSize;
  return {size.width() * 72 / DotsPerInch(dotsPerMeter.width()),
          size.height() * 72 / DotsPerInch(dotsPerMeter.height())};
}
