#include "platform/standin/utf8.h"

#include <cstdint>

namespace standin {
namespace {

bool IsContinuation(char byte) {
  return (static_cast<uint8_t>(byte) & 0xC0) == 0x80;
}

struct Lead {
  uint8_t mask;        // of the bits that tell the length
  uint8_t pattern;     // of those bits
  size_t length;       // of the whole character, in bytes
  uint32_t codePoint;  // the smallest that needs this length
};

constexpr Lead kLeads[] = {
    {0x80, 0x00, 1, 0x0},
    {0xE0, 0xC0, 2, 0x80},
    {0xF0, 0xE0, 3, 0x800},
    {0xF8, 0xF0, 4, 0x10000},
};

/// The length of the character at the beginning of the text, 0 when it is none.
size_t CharacterLength(std::string_view text) {
  const auto first = static_cast<uint8_t>(text.front());
  for (const Lead& lead : kLeads) {
    if ((first & lead.mask) != lead.pattern) continue;
    if (text.size() < lead.length) return 0;
    uint32_t codePoint = first & ~lead.mask;
    for (size_t i = 1; i < lead.length; ++i) {
      if (!IsContinuation(text[i])) return 0;
      codePoint = codePoint << 6 | (static_cast<uint8_t>(text[i]) & 0x3F);
    }
    const bool isSurrogate = codePoint >= 0xD800 && codePoint < 0xE000;
    return codePoint < lead.codePoint || codePoint > 0x10FFFF || isSurrogate ? 0 : lead.length;
  }
  return 0;
}

}  // namespace

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    const size_t length = CharacterLength(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

std::string_view CutUtf8(std::string_view text, size_t size) {
  if (text.size() <= size) return text;
  while (size > 0 && IsContinuation(text[size])) --size;
  return text.substr(0, size);
}

}  // namespace standin
