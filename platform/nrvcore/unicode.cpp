#include "platform/nrvcore/unicode.h"

#include <algorithm>
#include <boost/locale/utf.hpp>
#include <iterator>
#include <string>

namespace nrvcore::utility {

namespace {

using boost::locale::utf::code_point;
using UTF8 = boost::locale::utf::utf_traits<char>;
using UTF16 = boost::locale::utf::utf_traits<char16_t>;

constexpr code_point kReplacement = 0xFFFD;

bool IsMalformed(code_point decoded) {
  return decoded == boost::locale::utf::illegal || decoded == boost::locale::utf::incomplete;
}

/// The number of ASCII bytes at the start. Most texts are ASCII and need no decoding.
std::size_t AsciiLength(std::string_view text) {
  const auto isAscii = [](unsigned char byte) { return byte < 0x80; };
  return std::find_if_not(text.begin(), text.end(), isAscii) - text.begin();
}

/// The length in bytes of a sequence that begins with this byte; 1 for an invalid first byte.
std::ptrdiff_t SequenceLength(unsigned char first) {
  return first < 0xC0 || first >= 0xF8 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
}

/// Removes one code point from the front. A malformed sequence ends before the first byte that
/// cannot belong to it; Boost's decoder would skip that byte as well.
code_point TakeCodePoint(std::string_view& text) {
  const char* end = text.data();
  const code_point decoded = UTF8::decode(end, text.data() + text.size());
  if (IsMalformed(decoded)) {
    const auto length = std::min<std::ptrdiff_t>(SequenceLength(text.front()), std::ssize(text));
    end = std::find_if_not(text.data() + 1, text.data() + length, &UTF8::is_trail);
  }
  text.remove_prefix(end - text.data());
  return decoded;
}

code_point TakeCodePoint(std::u16string_view& text) {
  const char16_t* end = text.data();
  const code_point decoded = UTF16::decode(end, text.data() + text.size());
  text.remove_prefix(IsMalformed(decoded) ? 1 : end - text.data());
  return decoded;
}

/// Converts `text` to the other encoding; U+FFFD replaces each malformed sequence.
template <class Encoding, class From, class To>
void AppendConverted(std::basic_string_view<From> text, std::basic_string<To>& out) {
  while (!text.empty()) {
    const code_point decoded = TakeCodePoint(text);
    Encoding::encode(IsMalformed(decoded) ? kReplacement : decoded, std::back_inserter(out));
  }
}

}  // namespace

UTF16String UTF8ToUTF16(std::string_view text) {
  const std::string_view ascii = text.substr(0, AsciiLength(text));
  std::u16string out;
  out.reserve(text.size());
  out.append(ascii.begin(), ascii.end());
  AppendConverted<UTF16>(text.substr(ascii.size()), out);
  return UTF16String(out);
}

std::string UTF16ToUTF8(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  AppendConverted<UTF8>(text, out);
  return out;
}

bool IsValidUTF8(std::string_view text) {
  text.remove_prefix(AsciiLength(text));
  while (!text.empty()) {
    if (IsMalformed(TakeCodePoint(text))) return false;
    text.remove_prefix(AsciiLength(text));
  }
  return true;
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
