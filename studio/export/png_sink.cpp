#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>
#include <vector>

#include "studio/base/output.h"
#include "studio/base/studio_error.h"
#include "studio/export/mosaic_export.h"
#include "studio/mosaic/light.h"

namespace {

constexpr double kLongSide = 1600;  // in pixels, unless the tiles need more
constexpr double kPixelsPerTile = 4;
constexpr double kMostPixels = 64e6;       // by default, unless the tiles need more
constexpr double kMostPixelsEver = 256e6;  // larger exports are refused
constexpr double kMostSide = 32000;
constexpr double kPointsPerMeter = 72 / 0.0254;

/// The smallest scale with a pixel for each tile. Throws StudioError if that picture is too large.
double LeastScale(const MosaicGeometry& geometry) {
  const QSizeF pitch = geometry.tile + geometry.spacing;
  const double least = std::max(1 / pitch.width(), 1 / pitch.height());
  const double width = std::ceil(geometry.size.width() * least);
  const double height = std::ceil(geometry.size.height() * least);
  if (std::max(width, height) <= kMostSide && width * height <= kMostPixelsEver) return least;
  throw StudioError(
      "$$$/Studio/Export/TooManyPixels=a PNG with a pixel for each tile would have %1 by %2 "
      "pixels, which is too many; SVG and PDF can hold these tiles",
      NumberForUser(width), NumberForUser(height));
}

// A border this close to a pixel's edge counts as lying on it, in pixels.
constexpr double kTolerance = 1e-6;

int PixelCount(double length, double scale) {
  return std::max(1, int(std::ceil(length * scale - kTolerance)));
}

/// Calls `use` with each pixel that overlaps [start, end) and the overlapping share, 0 to 1.
template <typename Use>
void ForEachPixel(double start, double end, int pixels, Use use) {
  const int last = std::min(pixels, int(std::ceil(end - kTolerance)));
  for (int pixel = int(start + kTolerance); pixel < last; ++pixel) {
    use(pixel, std::min(end, pixel + 1.0) - std::max(start, double(pixel)));
  }
}

/// Draws the mosaic in pixels. A pixel that several tiles cover in part mixes their light by area,
/// so tiles that touch show no seam, and gaps narrower than a pixel keep their weight. Areas
/// without tiles are transparent.
class PngSink final : public MosaicSink {
 public:
  /// The scale is in pixels per point. Throws StudioError if memory is insufficient.
  PngSink(QIODevice& device, const MosaicGeometry& geometry, const QImage& below, double scale);

  void AddRow(std::span<const QRgb> tiles) override;
  void Finish() override;

 private:
  /// Sums over the parts of a pixel that tiles cover, weighted by area.
  struct Sample {
    Light light;
    double cover = 0;
  };

  void SpreadAcross(std::span<const QRgb> tiles);
  void CloseRow();
  void PaintRow(int y, const std::vector<Sample>& samples);

  QIODevice& device;
  const MosaicGeometry geometry;
  const QImage below;
  const double scale;
  QImage image;
  std::vector<Sample> across;  // the current row of tiles, for a row of pixels that it covers
  std::vector<Sample> open;    // of `openRow`, a row of pixels that the next tiles may cover too
  int openRow = -1;            // -1 if there is none
  bool isOpaque = true;
  int row = 0;
};

PngSink::PngSink(QIODevice& device, const MosaicGeometry& geometry, const QImage& below,
                 double scale)
    : device(device),
      geometry(geometry),
      below(below),
      scale(scale),
      image(PngPixels(geometry.size, scale), QImage::Format_ARGB32) {
  if (image.isNull()) throw StudioError(kNoMemory);
  image.fill(Qt::transparent);
  across.resize(size_t(image.width()));
  open.resize(across.size());
}

void PngSink::AddRow(std::span<const QRgb> tiles) {
  SpreadAcross(tiles);
  const double top = geometry.Top(row++) * scale;
  int paintedRow = -1;
  ForEachPixel(top, top + geometry.tile.height() * scale, image.height(), [&](int y, double share) {
    if (y != openRow) CloseRow();
    if (share < 1 - kTolerance) {
      openRow = y;
      for (size_t x = 0; x < open.size(); ++x) {
        open[x].light.red += share * across[x].light.red;
        open[x].light.green += share * across[x].light.green;
        open[x].light.blue += share * across[x].light.blue;
        open[x].cover += share * across[x].cover;
      }
    } else if (paintedRow < 0) {
      PaintRow(paintedRow = y, across);
    } else {
      std::memcpy(image.scanLine(y), image.constScanLine(paintedRow), size_t(image.bytesPerLine()));
    }
  });
}

void PngSink::SpreadAcross(std::span<const QRgb> tiles) {
  std::fill(across.begin(), across.end(), Sample());
  for (size_t column = 0; column < tiles.size(); ++column) {
    const QRgb tile = tiles[column];
    const double opacity = qAlpha(tile) / 255.0;
    const Light light{LightOf(qRed(tile)), LightOf(qGreen(tile)), LightOf(qBlue(tile))};
    const double left = geometry.Left(int(column)) * scale;
    ForEachPixel(left, left + geometry.tile.width() * scale, image.width(),
                 [&](int x, double share) {
                   Sample& sample = across[size_t(x)];
                   const double cover = share * opacity;
                   sample.light.red += cover * light.red;
                   sample.light.green += cover * light.green;
                   sample.light.blue += cover * light.blue;
                   sample.cover += cover;
                 });
  }
}

void PngSink::CloseRow() {
  if (openRow < 0) return;
  PaintRow(openRow, open);
  std::fill(open.begin(), open.end(), Sample());
  openRow = -1;
}

void PngSink::PaintRow(int y, const std::vector<Sample>& samples) {
  auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
  for (const Sample& sample : samples) {
    const int alpha = int(std::lround(sample.cover * 255));
    const Light light{sample.light.red / sample.cover, sample.light.green / sample.cover,
                      sample.light.blue / sample.cover};
    *line++ = alpha == 0 ? 0 : NearestColor(light, alpha);
    isOpaque &= alpha == 255;
  }
}

void PngSink::Finish() {
  CloseRow();
  if (isOpaque) image.reinterpretAsFormat(QImage::Format_RGB32);
  if (!below.isNull()) {
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(image.rect(), below);
  }
  image.setDotsPerMeterX(int(std::lround(scale * kPointsPerMeter)));
  image.setDotsPerMeterY(image.dotsPerMeterX());

  // Tiles are flat, so more effort gains almost nothing.
  constexpr int kQuickCompression = 80;
  WriteAll(device, EncodePicture(std::exchange(image, {}), "png", kQuickCompression));
}

}  // namespace

double PngScale(const MosaicGeometry& geometry) {
  const QSizeF size = geometry.size;
  const double longSide = std::max(size.width(), size.height());
  const double pitch = geometry.tile.width() + geometry.spacing.width();
  const double smallTile = std::min(geometry.tile.width(), geometry.tile.height());
  const double wanted = std::max(kLongSide / longSide, kPixelsPerTile / smallTile);
  // A whole number of pixels from tile to tile keeps their edges sharp.
  const double sharp = std::ceil(wanted * pitch) / pitch;
  const double chosen = std::min(
      {sharp, std::sqrt(kMostPixels / (size.width() * size.height())), kMostSide / longSide});
  return std::max(chosen, LeastScale(geometry));
}

QSize PngPixels(QSizeF size, double pixelsPerPoint) {
  return {PixelCount(size.width(), pixelsPerPoint), PixelCount(size.height(), pixelsPerPoint)};
}

double MostPngScale(QSizeF size) {
  return std::min(std::sqrt(kMostPixelsEver / (size.width() * size.height())),
                  kMostSide / std::max(size.width(), size.height()));
}

std::unique_ptr<MosaicSink> MakePngSink(QIODevice& device, const MosaicGeometry& geometry,
                                        const QImage& below, double pixelsPerPoint) {
  const double scale = pixelsPerPoint > 0 ? std::min(pixelsPerPoint, MostPngScale(geometry.size))
                                          : PngScale(geometry);
  return std::make_unique<PngSink>(device, geometry, below, scale);
}
