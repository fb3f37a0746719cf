#pragma once

#include <QRgb>
#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "studio/mosaic/light.h"
#include "studio/picture/picture.h"

/// Divides a picture into equal shares, one for each tile, and finds the mean colour of each. Where
/// a border runs through a pixel, the pixel counts for both sides by area, exactly; a tile may be
/// smaller than a pixel. Means are taken in linear light. Transparent pixels count by their
/// opacity, and a tile over part transparent pixels is part transparent itself.
class TileColors {
 public:
  /// Takes the colours of one row of tiles, from left to right, not premultiplied; answers whether
  /// to go on. A tile over nothing but transparent pixels is 0.
  using RowTaker = std::function<bool(std::span<const QRgb> tiles)>;

  /// Both counts at least 1. The picture must outlive the builder.
  TileColors(const Picture& picture, int tilesAcross, int tilesDown, bool isColor);

  /// Makes one pass over the picture and gives the rows from top to bottom. Memory doesn't grow
  /// with their number. Returns whether all rows were taken. Throws StudioError when the picture
  /// cannot be read to its end, or reading it was stopped.
  [[nodiscard]] bool Run(
      const RowTaker& takeRow, const IsStopped& isStopped = [] { return false; });

 private:
  /// The pixels, or rows of pixels, that a tile lies over: the first and last count by a weight of
  /// their own, those between them in full, which is the number of tiles. A tile within one pixel
  /// has a last weight of 0.
  struct Share {
    int first;
    int last;
    uint32_t firstWeight;
    uint32_t lastWeight;
  };

  /// Weighted sums of light, by opacity, and of opacity.
  struct Tally {
    uint64_t red = 0;
    uint64_t green = 0;
    uint64_t blue = 0;
    uint64_t alpha = 0;

    void Add(const Tally& other, uint64_t weight);
  };

  static Share ShareOf(int tile, int tiles, int pixels);

  void SumRow(const PictureRows& nextRow, int y);
  template <bool kHasAlpha>
  void SumLine(const QRgb* line);
  template <bool kHasAlpha>
  Tally TallyOf(const QRgb* pixels, int count) const;
  QRgb MeanOf(const Tally& tally) const;

  const Picture& picture;
  const int tilesDown;
  const bool isColor;
  const std::array<uint32_t, 256>& light = LightTable();
  std::vector<Share> columns;
  std::vector<Tally> rowSums;  // of the row of pixels `summedRow`, an entry a column
  int summedRow = -1;
};
