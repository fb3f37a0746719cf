#include "studio/mosaic_geometry.h"

#include <gtest/gtest.h>

#include <limits>

#include "studio/studio_error.h"

namespace {

MosaicParameters Params(int across, int spacing, float width) {
  MosaicParameters params{};
  params.tilesAcross = across;
  params.tilesDown = 2;
  params.tileSpacingHorizontal = spacing;
  params.newWidth = width;
  params.newHeight = 1;
  return params;
}

TEST(MosaicGeometry, DividesTheNewSizeAmongTilesAndSpacing) {
  const MosaicParameters params = Params(10, 4, 100);
  const auto lengths = MosaicGeometry::From(params, {}, {640, 480});
  EXPECT_DOUBLE_EQ(lengths.tile.width(), 6.4);
  EXPECT_DOUBLE_EQ(lengths.tile.height(), 0.5);
  EXPECT_DOUBLE_EQ(lengths.Left(9) + lengths.tile.width(), 100);
  EXPECT_TRUE(lengths.HasGaps());

  MosaicDialogState percent{};
  percent.usePercent = 1;
  const auto shares = MosaicGeometry::From(Params(10, 4, 0.5f), percent, {640, 480});
  EXPECT_EQ(shares.size, QSizeF(320, 480));
  EXPECT_FALSE(MosaicGeometry::From(Params(1, 4, 10), {}, {1, 1}).HasGaps());
}

TEST(MosaicGeometry, RefusesWhatLeavesNoTiles) {
  constexpr float kNoNumber = std::numeric_limits<float>::quiet_NaN();
  for (const MosaicParameters& params :
       {Params(10, 12, 100), Params(11, 10, 100), Params(2, -1, 100), Params(10, 0, 0),
        Params(10, 0, kNoNumber), Params(0, 0, 100), Params(-5, 0, 100)}) {
    EXPECT_THROW(MosaicGeometry::From(params, {}, {100, 100}), StudioError) << params.tilesAcross;
  }
}

}  // namespace
