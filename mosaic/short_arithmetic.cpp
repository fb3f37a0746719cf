#include "mosaic/short_arithmetic.h"

#include <algorithm>
#include <cmath>
#include <limits>

int32_t TruncateToInt(float value) {
  using Limits = std::numeric_limits<int32_t>;
  if (std::isnan(value)) return 0;
  if (value >= -static_cast<float>(Limits::min())) return Limits::max();
  if (value <= static_cast<float>(Limits::min())) return Limits::min();
  return static_cast<int32_t>(value);
}

int16_t RoundToShort(float value) {
  using Limits = std::numeric_limits<int16_t>;
  const double exact = value;
  const double rounded = exact > 0 ? std::floor(exact + 0.5) : std::ceil(exact - 0.5);
  return static_cast<int16_t>(std::clamp(TruncateToInt(static_cast<float>(rounded)),
                                         int32_t{Limits::min()}, int32_t{Limits::max()}));
}
