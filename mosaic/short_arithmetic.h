#pragma once

#include <cstdint>

/// The dialog's arithmetic on field values: counts and sizes are reckoned with as 16-bit numbers
/// and in single precision.

/// The integer part, towards zero; saturates at the 32-bit limits, 0 for what is no number.
int32_t TruncateToInt(float value);

/// The low 16 bits of a number, read as signed.
constexpr int16_t LowShort(int32_t value) {
  return static_cast<int16_t>(value);
}

/// minuend - subtrahend in 32 bits, wrapping.
constexpr int32_t WrappingDifference(int32_t minuend, int32_t subtrahend) {
  return static_cast<int32_t>(static_cast<uint32_t>(minuend) - static_cast<uint32_t>(subtrahend));
}

/// The nearest 16-bit number, halves away from zero; saturates at the 16-bit limits.
int16_t RoundToShort(float value);
