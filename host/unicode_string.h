#pragma once

#include <cstdint>

#include "platform/suites/host_suites.h"

namespace vx {

/// A string of the host, owned by this value; a null handle is the empty string. "VX Unicode
/// String Suite" must be held while one is made and destroyed.
class UnicodeString {
 public:
  /// Makes the host's string of a C string; null makes the empty string. `encoding` is the host's
  /// number for the text's encoding, 0 its default. Throws vx::Error with the host's code.
  explicit UnicodeString(const char* text, int32_t encoding = 0);
  ~UnicodeString();
  UnicodeString(const UnicodeString&) = delete;
  UnicodeString& operator=(const UnicodeString&) = delete;

  /// Where the handle stands; this is what the host's operations take. Stays this value's.
  const StringHandle* Handle() const { return &handle; }

 private:
  StringHandle handle = nullptr;
};

static_assert(sizeof(UnicodeString) == sizeof(StringHandle));

}  // namespace vx
