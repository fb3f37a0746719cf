#pragma once

#include <cstdint>

#include "platform/suites/host_suites.h"

namespace vx {

/// Owns a string object of the host. A null handle is the empty string. "VX Unicode String Suite"
/// must be held during construction and destruction.
class UnicodeString {
 public:
  /// Creates a string from a C string; null creates the empty string. `encoding` is the host's
  /// number for the text's encoding; 0 is its default. Throws vx::Error with the host's code.
  explicit UnicodeString(const char* text, int32_t encoding = 0);
  ~UnicodeString();
  UnicodeString(const UnicodeString&) = delete;
  UnicodeString& operator=(const UnicodeString&) = delete;

  /// The address of the handle, as the host's operations expect it. This object keeps ownership.
  const StringHandle* Handle() const { return &handle; }

 private:
  StringHandle handle = nullptr;
};

static_assert(sizeof(UnicodeString) == sizeof(StringHandle));

}  // namespace vx
