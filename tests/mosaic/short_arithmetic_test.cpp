#include "mosaic/short_arithmetic.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

TEST(ShortArithmetic, SaturatesAndRoundsHalvesAwayFromZero) {
  using Int = std::numeric_limits<int32_t>;
  EXPECT_EQ(TruncateToInt(NAN), 0);
  EXPECT_EQ(TruncateToInt(INFINITY), Int::max());
  EXPECT_EQ(TruncateToInt(2147483648.0f), Int::max());
  EXPECT_EQ(TruncateToInt(-2147483648.0f), Int::min());
  EXPECT_EQ(RoundToShort(-1e9f), -32768);
  EXPECT_EQ(RoundToShort(10.5f), 11);
  EXPECT_EQ(RoundToShort(-2.5f), -3);
}
