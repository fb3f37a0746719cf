#pragma once

#include <string>
#include <string_view>

#include "platform/nrvcore/string.h"

namespace nrvcore::utility {

/// Neither direction fails: whatever is malformed becomes U+FFFD.
NRV_EXPORT UTF16String UTF8ToUTF16(std::string_view text);
NRV_EXPORT std::string UTF16ToUTF8(std::u16string_view text);

NRV_EXPORT bool IsValidUTF8(std::string_view text);

/// Null counts as empty; a byte beyond ASCII becomes U+FFFD.
NRV_EXPORT UTF16String AsciiToUTF16(const char* text);

}  // namespace nrvcore::utility
