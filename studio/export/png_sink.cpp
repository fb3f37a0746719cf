#include "studio/export/png_sink.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPainter>
#include <cmath>

#include "studio/base/studio_error.h"
#include "studio/base/text_writer.h"

namespace {

constexpr double kLongSide = 1600;  // in pixels, where the tiles ask for no more
constexpr double kPixelsPerTile = 4;
constexpr double kMostPixels = 64e6;
constexpr double kMostPixelsPerSide = 32000;
constexpr int kQuickCompression = 80;  // tiles are flat, so more effort gains next to nothing
constexpr double kPointsPerMeter = 72 / 0.0254;

double ChooseScale(const MosaicGeometry& geometry) {
  const QSizeF size = geometry.size;
  const double longSide = std::max(size.width(), size.height());
  const double pitch = geometry.tile.width() + geometry.spacing.width();
  const double smallTile = std::min(geometry.tile.width(), geometry.tile.height());
  const double wanted = std::max(kLongSide / longSide, kPixelsPerTile / smallTile);
  // A whole number of pixels from tile to tile keeps their edges sharp.
  const double sharp = std::ceil(wanted * pitch) / pitch;
  return std::min({sharp, std::sqrt(kMostPixels / (size.width() * size.height())),
                   kMostPixelsPerSide / longSide});
}

}  // namespace

PngSink::PngSink(QIODevice& device, const MosaicGeometry& geometry, const QImage& below)
    : device(device), scale(ChooseScale(geometry)), raster(geometry, scale), below(below) {}

void PngSink::Finish() {
  raster.Finish();
  QImage image = raster.TakeImage();
  if (!below.isNull()) {
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(image.rect(), below);
  }
  image.setDotsPerMeterX(int(std::lround(scale * kPointsPerMeter)));
  image.setDotsPerMeterY(image.dotsPerMeterX());

  // Into memory first: a full disk then meets our own words, not those of the encoder.
  QBuffer encoded;
  encoded.open(QIODevice::WriteOnly);
  QImageWriter writer(&encoded, "png");
  writer.setQuality(kQuickCompression);
  if (!writer.write(image)) {
    throw StudioError("$$$/Studio/Export/NoPng=the PNG picture cannot be made");
  }
  WriteAll(device, {encoded.data().constData(), size_t(encoded.data().size())});
}
