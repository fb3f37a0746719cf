#include "mosaic/short_arithmetic.h"

#include <algorithm>
#include <cmath>
#include <limits>

int32_t TruncateToInt(float value) {
  using Limits = std::numeric_limits<int32_t>;
  if (std::isnan(value)) return 0;
  return static_cast<int32_t>(std::clamp<double>(value, Limits::min(), Limits::max()));
}

int16_t RoundToShort(float value) {
  using Limits = std::numeric_limits<int16_t>;
  return static_cast<int16_t>(
      std::clamp(TruncateToInt(std::round(value)), int32_t{Limits::min()}, int32_t{Limits::max()}));
}
