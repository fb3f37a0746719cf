#pragma once

#include <cstdarg>
#include <cstddef>
#include <cstdint>

/// Outcome of BoundedCopy and BoundedFormat where it is not a success.
constexpr int32_t kBadArgument = -1;
constexpr int32_t kCut = -2;

/// Copies at most `count` characters of a C string into `size` bytes, always terminated.
/// Answers 0 when the source, or `count` characters of it, fitted and kCut when the destination
/// filled first. kBadArgument for a null destination, a null source or size 0; nothing is written
/// to a destination of size 0. A null destination with size 0 and count 0 is a success.
int32_t BoundedCopy(char* destination, size_t size, const char* source, size_t count);

/// Formats like vsnprintf into `size` bytes, always terminated. Answers the length, or kCut when
/// the text did not fit, or kBadArgument for a null destination, a null format or size 0.
int32_t BoundedFormat(char* destination, size_t size, const char* format, va_list arguments);

/// BoundedFormat into a whole buffer.
template <size_t kSize>
__attribute__((format(printf, 2, 3))) int32_t FormatInto(char (&buffer)[kSize], const char* format,
                                                         ...) {
  va_list arguments;
  va_start(arguments, format);
  const int32_t outcome = BoundedFormat(buffer, kSize, format, arguments);
  va_end(arguments);
  return outcome;
}
