#pragma once

#include <cstdarg>
#include <cstddef>
#include <cstdint>

/// Copying and formatting of C strings into buffers of a fixed size. The result is always
/// terminated. A destination needs room for one character even if its `size`, in bytes, is 0: it
/// then becomes the empty string.

/// The results of BoundedCopy and BoundedFormat for a failure.
constexpr int32_t kBadArgument = -1;
constexpr int32_t kTruncated = -2;

/// Copies at most `count` characters of `source`. Returns 0 if the source, or `count` characters of
/// it, fits, and kTruncated if it does not. Returns kBadArgument for a null destination, a null
/// source or size 0, but 0 for a null destination with size 0 and count 0.
int32_t BoundedCopy(char* destination, size_t size, const char* source, size_t count);

/// Formats like vsnprintf. Returns the length, kTruncated if the text does not fit or cannot be
/// formatted, or kBadArgument for a null destination, a null format or size 0.
int32_t BoundedFormat(char* destination, size_t size, const char* format, va_list arguments);

/// BoundedFormat into an array.
template <size_t kSize>
__attribute__((format(printf, 2, 3))) int32_t FormatInto(char (&buffer)[kSize], const char* format,
                                                         ...) {
  va_list arguments;
  va_start(arguments, format);
  const int32_t outcome = BoundedFormat(buffer, kSize, format, arguments);
  va_end(arguments);
  return outcome;
}
