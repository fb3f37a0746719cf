#pragma once

#include <cstddef>
#include <string_view>

namespace standin {

/// Whether the text is well-formed UTF-8.
bool IsUtf8(std::string_view text);

/// The longest beginning of the text of at most `size` bytes that cuts no character in two.
std::string_view CutUtf8(std::string_view text, size_t size);

}  // namespace standin
