#pragma once

#include <cstdint>

/// The dialog's arithmetic on field values. Counts and sizes are computed in single precision and
/// converted to signed 16-bit integers.

/// Truncates towards zero; saturates at the 32-bit limits. NaN becomes 0.
int32_t TruncateToInt(float value);

/// The low 16 bits as a signed integer.
constexpr int16_t LowShort(int32_t value) {
  return static_cast<int16_t>(value);
}

/// minuend - subtrahend modulo 2^32.
constexpr int32_t WrappingDifference(int32_t minuend, int32_t subtrahend) {
  return static_cast<int32_t>(static_cast<uint32_t>(minuend) - static_cast<uint32_t>(subtrahend));
}

/// The nearest integer, halves away from zero; saturates at the 16-bit limits. NaN becomes 0.
int16_t RoundToShort(float value);
