#pragma once

#include <string>
#include <string_view>

#include "platform/nrvcore/string.h"

namespace nrvcore::utility {

/// Convert every text: each malformed sequence becomes U+FFFD.
NRV_EXPORT UTF16String UTF8ToUTF16(std::string_view text);
NRV_EXPORT std::string UTF16ToUTF8(std::u16string_view text);

NRV_EXPORT bool IsValidUTF8(std::string_view text);

/// Converts a NUL-terminated text; null gives an empty string. Bytes above 0x7F become U+FFFD.
NRV_EXPORT UTF16String AsciiToUTF16(const char* text);

}  // namespace nrvcore::utility
