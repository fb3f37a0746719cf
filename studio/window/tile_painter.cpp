#include "studio/window/tile_painter.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace {

constexpr double kSmallestPitch = 2;  // in pixels of the screen: a pixel then meets two tiles

/// A tile's colour by its weight of 65536, added to sums of the channels.
struct Sums {
  uint32_t alpha = 0;
  uint32_t red = 0;
  uint32_t green = 0;
  uint32_t blue = 0;

  void Add(QRgb color, uint32_t weight) {
    alpha += qAlpha(color) * weight;
    red += qRed(color) * weight;
    green += qGreen(color) * weight;
    blue += qBlue(color) * weight;
  }
  QRgb Color() const { return qRgba(red >> 16, green >> 16, blue >> 16, alpha >> 16); }
};

/// How the tiles that are drawn lie in one direction. Where fewer are drawn than the mosaic has,
/// they have no gaps, and `cover`, the share of the length that its tiles take, thins them.
struct Side {
  Side(int drawn, int all, double tileSize, double gap, double size)
      : tiles(drawn),
        tile(drawn < all ? size / drawn : tileSize),
        spacing(drawn < all ? 0 : gap),
        cover(drawn < all ? tileSize * all / size : 1) {}

  int tiles;
  double tile;
  double spacing;
  double cover;
};

/// The tile that a line of pixels begins in, the weights of it and of the next, up to 256.
struct Line {
  int tile = 0;
  int weight = 0;
  int nextWeight = 0;

  bool operator==(const Line&) const = default;
};

std::vector<Line> Divide(double start, double step, int pixels, const Side& side) {
  const double pitch = side.tile + side.spacing;
  std::vector<Line> lines(static_cast<size_t>(pixels));
  for (int i = 0; i < pixels; ++i) {
    const double from = start + i * step;
    const auto weightOf = [&](int index) {
      if (index < 0 || index >= side.tiles) return 0;
      const double covered =
          std::min(from + step, index * pitch + side.tile) - std::max(from, index * pitch);
      return int(std::lround(std::clamp(covered / step, 0.0, 1.0) * 256));
    };
    const int first = int(std::floor(from / pitch));
    Line& line = lines[size_t(i)];
    line = {first, weightOf(first), weightOf(first + 1)};
    if (line.weight == 0) line = {first + 1, line.nextWeight, 0};
    if (line.weight == 0) line.tile = 0;
    line.nextWeight = std::min(line.nextWeight, 256 - line.weight);
  }
  return lines;
}

void Fill(QImage& image, const QImage& tiles, const std::vector<Line>& columns,
          const std::vector<Line>& rows) {
  for (size_t y = 0; y < rows.size(); ++y) {
    const Line& row = rows[y];
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(int(y)));
    if (y > 0 && row == rows[y - 1]) {
      std::memcpy(line, image.constScanLine(int(y) - 1), size_t(image.bytesPerLine()));
      continue;
    }
    const auto* upper = reinterpret_cast<const QRgb*>(tiles.constScanLine(row.tile));
    const auto* lower =
        reinterpret_cast<const QRgb*>(tiles.constScanLine(row.tile + (row.nextWeight > 0 ? 1 : 0)));
    for (const Line& column : columns) {
      if (column.weight == 256 && row.weight == 256) {
        *line++ = upper[column.tile];
        continue;
      }
      Sums sums;
      const int next = column.tile + (column.nextWeight > 0 ? 1 : 0);
      sums.Add(upper[column.tile], uint32_t(column.weight * row.weight));
      sums.Add(upper[next], uint32_t(column.nextWeight * row.weight));
      sums.Add(lower[column.tile], uint32_t(column.weight * row.nextWeight));
      sums.Add(lower[next], uint32_t(column.nextWeight * row.nextWeight));
      *line++ = sums.Color();
    }
  }
}

/// How often the image must be halved for its pixels to be at least as large as the screen's.
int HalvesFor(double pixel, int length) {
  const int most = int(std::log2(std::max(1, length)));
  if (!(pixel > 0)) return most;
  return int(std::clamp(std::floor(-std::log2(pixel)), 0.0, double(most)));
}

}  // namespace

const QImage& ImageLevels::For(double pixelWidth, double pixelHeight) {
  const std::pair halves(HalvesFor(pixelWidth, original.width()),
                         HalvesFor(pixelHeight, original.height()));
  if (halves == std::pair(0, 0)) return original;
  QImage& level = reduced[halves];
  if (level.isNull()) {
    const QSize size(std::max(1, original.width() >> halves.first),
                     std::max(1, original.height() >> halves.second));
    level = original.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  }
  return level.isNull() ? original : level;  // there may be no memory for another one
}

TilePainter::TilePainter(std::shared_ptr<const Mosaic> shown)
    : mosaic(std::move(shown)),
      levels(mosaic->tiles.convertToFormat(QImage::Format_ARGB32_Premultiplied)) {}

void TilePainter::Paint(QPainter& painter, const QRectF& exposed) {
  const MosaicGeometry& geometry = mosaic->geometry;
  const QTransform transform = painter.combinedTransform();  // to pixels of the device
  const QRect seen = transform.mapRect(exposed & QRectF({0, 0}, geometry.size)).toAlignedRect();
  if (seen.isEmpty()) return;

  const double scaleX = transform.m11();
  const double scaleY = transform.m22();
  // A preview may have fewer pixels than there are tiles.
  const QSize full = levels.Full().size();
  const double pitchX = geometry.Left(geometry.tilesAcross) / full.width();
  const double pitchY = geometry.Top(geometry.tilesDown) / full.height();
  const QImage& tiles =
      levels.For(pitchX * scaleX / kSmallestPitch, pitchY * scaleY / kSmallestPitch);

  if (tiles.isNull()) return;
  const Side across(tiles.width(), geometry.tilesAcross, geometry.tile.width(),
                    geometry.spacing.width(), geometry.size.width());
  const Side down(tiles.height(), geometry.tilesDown, geometry.tile.height(),
                  geometry.spacing.height(), geometry.size.height());

  QImage image(seen.size(), QImage::Format_ARGB32_Premultiplied);
  if (image.isNull()) return;
  Fill(image, tiles,
       Divide((seen.left() - transform.dx()) / scaleX, 1 / scaleX, image.width(), across),
       Divide((seen.top() - transform.dy()) / scaleY, 1 / scaleY, image.height(), down));

  const double ratio = painter.device()->devicePixelRatioF();
  image.setDevicePixelRatio(ratio);
  painter.save();
  painter.resetTransform();
  painter.setOpacity(painter.opacity() * across.cover * down.cover);
  painter.drawImage(QPointF(seen.topLeft()) / ratio, image);
  painter.restore();
}
