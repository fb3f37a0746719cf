#include "host/unicode_string.h"

#include <cstring>

#include "host/error.h"
#include "host/suite_access.h"

namespace vx {

UnicodeString::UnicodeString(const char* text, int32_t encoding) {
  if (!text) return;
  const ResultCode code =
      Suite<VXUnicodeStringSuite>()->CreateFromText(&handle, text, std::strlen(text), encoding);
  if (Failed(code)) throw Error(code);
}

UnicodeString::~UnicodeString() {
  if (!handle) return;
  (void)Guarded([this] { return Suite<VXUnicodeStringSuite>()->Dispose(&handle); });
}

}  // namespace vx
