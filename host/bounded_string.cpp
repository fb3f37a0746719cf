#include "host/bounded_string.h"

#include <cstdio>

int32_t BoundedCopy(char* destination, size_t size, const char* source, size_t count) {
  if (!destination) return size == 0 && count == 0 ? 0 : kBadArgument;
  destination[0] = '\0';
  if (!source || size == 0) return kBadArgument;

  size_t copied = 0;
  for (; copied < count && source[copied] != '\0'; ++copied) {
    if (copied == size - 1) {
      destination[copied] = '\0';
      return kTruncated;
    }
    destination[copied] = source[copied];
  }
  destination[copied] = '\0';
  return 0;
}

int32_t BoundedFormat(char* destination, size_t size, const char* format, va_list arguments) {
  if (!destination) return kBadArgument;
  destination[0] = '\0';
  if (!format || size == 0) return kBadArgument;

  const int length = std::vsnprintf(destination, size, format, arguments);
  return length >= 0 && static_cast<size_t>(length) < size ? length : kTruncated;
}
