#include "studio/mosaic/tile_colors.h"

#include <algorithm>
#include <cmath>

void TileColors::Tally::Add(const Tally& other, uint64_t weight) {
  red += weight * other.red;
  green += weight * other.green;
  blue += weight * other.blue;
  alpha += weight * other.alpha;
}

TileColors::TileColors(const Picture& picture, int tilesAcross, int tilesDown, bool isColor)
    : picture(picture),
      tilesDown(tilesDown),
      isColor(isColor),
      columns(size_t(tilesAcross)),
      rowSums(size_t(tilesAcross)) {
  for (int column = 0; column < tilesAcross; ++column) {
    columns[size_t(column)] = ShareOf(column, tilesAcross, picture.Size().width());
  }
}

bool TileColors::Run(const RowTaker& takeRow, const IsStopped& isStopped) {
  const PictureRows nextRow = picture.Rows(isStopped);
  summedRow = -1;
  std::vector<Tally> tallies(columns.size());
  std::vector<QRgb> tiles(columns.size());
  for (int row = 0; row < tilesDown; ++row) {
    const Share share = ShareOf(row, tilesDown, picture.Size().height());
    std::fill(tallies.begin(), tallies.end(), Tally());
    for (int y = share.first; y <= share.last; ++y) {
      const uint32_t weight = y == share.first  ? share.firstWeight
                              : y == share.last ? share.lastWeight
                                                : uint32_t(tilesDown);
      SumRow(nextRow, y);
      for (size_t column = 0; column < tallies.size(); ++column) {
        tallies[column].Add(rowSums[column], weight);
      }
    }
    std::transform(tallies.begin(), tallies.end(), tiles.begin(),
                   [this](const Tally& tally) { return MeanOf(tally); });
    if (!takeRow(tiles)) return false;
  }
  return true;
}

/// Measured in pixels divided by the number of tiles, every border is a whole number.
TileColors::Share TileColors::ShareOf(int tile, int tiles, int pixels) {
  const int64_t start = int64_t(tile) * pixels;
  const int64_t end = start + pixels;
  const int64_t first = start / tiles;
  const int64_t last = (end - 1) / tiles;
  return {int(first), int(last), uint32_t(std::min(end, (first + 1) * tiles) - start),
          first == last ? 0 : uint32_t(end - last * tiles)};
}

/// A row of pixels under a border belongs to two rows of tiles, one under small tiles to many; it
/// is summed once.
void TileColors::SumRow(const PictureRows& nextRow, int y) {
  if (y == summedRow) return;
  summedRow = y;
  const QRgb* const line = nextRow();
  picture.HasAlpha() ? SumLine<true>(line) : SumLine<false>(line);
}

template <bool kHasAlpha>
void TileColors::SumLine(const QRgb* line) {
  const auto fullWeight = uint32_t(columns.size());
  for (size_t column = 0; column < columns.size(); ++column) {
    const Share& share = columns[column];
    Tally& sum = rowSums[column] = Tally();
    sum.Add(TallyOf<kHasAlpha>(line + share.first, 1), share.firstWeight);
    if (share.lastWeight == 0) continue;
    sum.Add(TallyOf<kHasAlpha>(line + share.first + 1, share.last - share.first - 1), fullWeight);
    sum.Add(TallyOf<kHasAlpha>(line + share.last, 1), share.lastWeight);
  }
}

template <bool kHasAlpha>
TileColors::Tally TileColors::TallyOf(const QRgb* pixels, int count) const {
  Tally tally;
  for (const QRgb* pixel = pixels; pixel != pixels + count; ++pixel) {
    const uint64_t alpha = kHasAlpha ? uint64_t(qAlpha(*pixel)) : 1;
    tally.red += alpha * light[size_t(qRed(*pixel))];
    tally.green += alpha * light[size_t(qGreen(*pixel))];
    tally.blue += alpha * light[size_t(qBlue(*pixel))];
    if (kHasAlpha) tally.alpha += alpha;
  }
  if (!kHasAlpha) tally.alpha = uint64_t(count);
  return tally;
}

QRgb TileColors::MeanOf(const Tally& tally) const {
  if (tally.alpha == 0) return 0;
  const auto weight = double(tally.alpha);
  const Light mean{double(tally.red) / weight / kFullLight,
                   double(tally.green) / weight / kFullLight,
                   double(tally.blue) / weight / kFullLight};
  const double area = double(picture.Size().width()) * picture.Size().height();
  const int alpha = picture.HasAlpha() ? int(std::lround(weight / area)) : 255;
  if (alpha == 0) return 0;
  return NearestColor(isColor ? mean : mean.Grey(), alpha);
}
