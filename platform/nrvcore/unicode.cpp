#include "platform/nrvcore/unicode.h"

#include <algorithm>
#include <array>
#include <string>

namespace nrvcore::utility {

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kMalformed = 0xFFFFFFFF;

bool IsSurrogate(char32_t codePoint) {
  return codePoint >= 0xD800 && codePoint <= 0xDFFF;
}

struct SequenceForm {
  unsigned char mask;
  unsigned char lead;
  std::size_t length;
  char32_t smallest;  // anything below has a shorter form and is malformed in this one
};

constexpr std::array kForms = {
    SequenceForm{0xE0, 0xC0, 2, 0x80},
    SequenceForm{0xF0, 0xE0, 3, 0x800},
    SequenceForm{0xF8, 0xF0, 4, 0x10000},
};

/// Takes one code point off the front; kMalformed for a byte that starts none, and for a sequence
/// that is cut short or means nothing.
char32_t TakeCodePoint(std::string_view& text) {
  const auto first = static_cast<unsigned char>(text.front());
  if (first < 0x80) {
    text.remove_prefix(1);
    return first;
  }
  for (const SequenceForm& form : kForms) {
    if ((first & form.mask) != form.lead) continue;
    char32_t codePoint = first & static_cast<unsigned char>(~form.mask);
    std::size_t taken = 1;
    while (taken < form.length && taken < text.size() && (text[taken] & 0xC0) == 0x80) {
      codePoint = codePoint << 6 | (text[taken++] & 0x3F);
    }
    text.remove_prefix(taken);
    const bool whole = taken == form.length && codePoint >= form.smallest;
    return whole && codePoint <= 0x10FFFF && !IsSurrogate(codePoint) ? codePoint : kMalformed;
  }
  text.remove_prefix(1);
  return kMalformed;
}

/// Takes the text up to the first character beyond ASCII off the front.
std::string_view TakeAscii(std::string_view& text) {
  const auto isBeyond = [](char c) { return static_cast<unsigned char>(c) >= 0x80; };
  const auto end = std::ranges::find_if(text, isBeyond);
  const std::string_view ascii(text.begin(), end);
  text.remove_prefix(ascii.size());
  return ascii;
}

char32_t TakeCodePoint(std::u16string_view& text) {
  const char16_t first = text.front();
  text.remove_prefix(1);
  if (!IsSurrogate(first)) return first;
  const bool paired = first < 0xDC00 && !text.empty() && (text.front() & 0xFC00) == 0xDC00;
  if (!paired) return kReplacement;
  const char32_t codePoint = 0x10000 + ((first - 0xD800u) << 10) + (text.front() - 0xDC00u);
  text.remove_prefix(1);
  return codePoint;
}

void AppendUTF8(std::string& out, char32_t codePoint) {
  if (codePoint < 0x80) {
    out += static_cast<char>(codePoint);
    return;
  }
  const int trailing = codePoint < 0x800 ? 1 : codePoint < 0x10000 ? 2 : 3;
  out += static_cast<char>(kForms[trailing - 1].lead | codePoint >> 6 * trailing);
  for (int i = trailing - 1; i >= 0; --i) {
    out += static_cast<char>(0x80 | (codePoint >> 6 * i & 0x3F));
  }
}

void AppendUTF16(std::u16string& out, char32_t codePoint) {
  if (codePoint < 0x10000) {
    out += static_cast<char16_t>(codePoint);
    return;
  }
  out += static_cast<char16_t>(0xD800 + ((codePoint - 0x10000) >> 10));
  out += static_cast<char16_t>(0xDC00 + ((codePoint - 0x10000) & 0x3FF));
}

}  // namespace

UTF16String UTF8ToUTF16(std::string_view text) {
  std::u16string out;
  out.reserve(text.size());
  for (;;) {
    const std::string_view ascii = TakeAscii(text);
    out.append(ascii.begin(), ascii.end());
    if (text.empty()) return UTF16String(out);
    const char32_t codePoint = TakeCodePoint(text);
    AppendUTF16(out, codePoint == kMalformed ? kReplacement : codePoint);
  }
}

String UTF16ToUTF8(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) AppendUTF8(out, TakeCodePoint(text));
  return String(out);
}

bool IsValidUTF8(std::string_view text) {
  for (;;) {
    TakeAscii(text);
    if (text.empty()) return true;
    if (TakeCodePoint(text) == kMalformed) return false;
  }
}

UTF16String AsciiToUTF16(const char* text) {
  std::u16string out;
  for (const char character : std::string_view(text == nullptr ? "" : text)) {
    const auto byte = static_cast<unsigned char>(character);
    out += byte < 0x80 ? static_cast<char16_t>(byte) : static_cast<char16_t>(kReplacement);
  }
  return UTF16String(out);
}

}  // namespace nrvcore::utility
