#include "mosaic/short_arithmetic.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

TEST(ShortArithmetic, HasAnAnswerForWhatFitsNoInteger) {
  using Int = std::numeric_limits<int32_t>;
  EXPECT_EQ(TruncateToInt(NAN), 0);
  EXPECT_EQ(TruncateToInt(INFINITY), Int::max());
  EXPECT_EQ(TruncateToInt(2147483648.0f), Int::max());
  EXPECT_EQ(TruncateToInt(-2147483648.0f), Int::min());
  EXPECT_EQ(RoundToShort(-1e9f), -32768);
}
