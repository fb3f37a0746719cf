#include "studio/export/mosaic_raster.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "studio/base/studio_error.h"

namespace {

// Borders this close to a pixel's edge lie on it, in pixels.
constexpr double kTolerance = 1e-6;

int PixelCount(double length, double scale) {
  return std::max(1, int(std::ceil(length * scale - kTolerance)));
}

/// Calls `use` with each pixel between two borders and the share of it that lies between them.
template <typename Use>
void ForEachPixel(double start, double end, int pixels, Use use) {
  const int last = std::min(pixels, int(std::ceil(end - kTolerance)));
  for (int pixel = int(start + kTolerance); pixel < last; ++pixel) {
    use(pixel, std::min(end, pixel + 1.0) - std::max(start, double(pixel)));
  }
}

}  // namespace

MosaicRaster::MosaicRaster(const MosaicGeometry& geometry, double scale)
    : geometry(geometry),
      scale(scale),
      image(PixelCount(geometry.size.width(), scale), PixelCount(geometry.size.height(), scale),
            QImage::Format_ARGB32) {
  if (image.isNull()) throw StudioError(kNoMemory);
  image.fill(Qt::transparent);
  across.resize(size_t(image.width()));
  open.resize(across.size());
}

void MosaicRaster::AddRow(std::span<const QRgb> tiles) {
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

void MosaicRaster::Finish() {
  CloseRow();
  if (isOpaque) image.reinterpretAsFormat(QImage::Format_RGB32);
}

void MosaicRaster::SpreadAcross(std::span<const QRgb> tiles) {
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

void MosaicRaster::CloseRow() {
  if (openRow < 0) return;
  PaintRow(openRow, open);
  std::fill(open.begin(), open.end(), Sample());
  openRow = -1;
}

void MosaicRaster::PaintRow(int y, const std::vector<Sample>& samples) {
  auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
  for (const Sample& sample : samples) {
    const int alpha = std::min(255, int(std::lround(sample.cover * 255)));
    const Light light{sample.light.red / sample.cover, sample.light.green / sample.cover,
                      sample.light.blue / sample.cover};
    *line++ = alpha == 0 ? 0 : NearestColor(light, alpha);
    isOpaque &= alpha == 255;
  }
}
