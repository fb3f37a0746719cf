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

/// How many bytes this one announces; 1 for a byte that starts no sequence.
std::ptrdiff_t AnnouncedLength(unsigned char first) {
  return first < 0xC0 || first >= 0xF8 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
}

/// Takes one code point off the front. A malformed sequence ends before the first byte that cannot
/// belong to it, where the library's decoder takes that byte too.
code_point TakeCodePoint(std::string_view& text) {
  const char* end = text.data();
  const code_point decoded = UTF8::decode(end, text.data() + text.size());
  if (IsMalformed(decoded)) {
    const auto most = std::min<std::ptrdiff_t>(AnnouncedLength(text.front()), std::ssize(text));
    end = std::find_if_not(text.data() + 1, text.data() + most, &UTF8::is_trail);
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

/// The rest of `text` in the other encoding, with a replacement for each malformed sequence.
template <class Encoding, class From, class To>
void AppendConverted(std::basic_string_view<From> text, std::basic_string<To>& out) {
  while (!text.empty()) {
    const code_point decoded = TakeCodePoint(text);
    Encoding::encode(IsMalformed(decoded) ? kReplacement : decoded, std::back_inserter(out));
  }
}

}  // namespace

UTF16String UTF8ToUTF16(std::string_view text) {
  const auto isBeyondAscii = [](char c) { return static_cast<unsigned char>(c) >= 0x80; };
  const auto asciiEnd = std::find_if(text.begin(), text.end(), isBeyondAscii);
  std::u16string out;
  out.reserve(text.size());
  out.append(text.begin(), asciiEnd);
  AppendConverted<UTF16>(std::string_view(asciiEnd, text.end()), out);
  return UTF16String(out);
}

String UTF16ToUTF8(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  AppendConverted<UTF8>(text, out);
  return String(out);
}

bool IsValidUTF8(std::string_view text) {
  while (!text.empty()) {
    if (IsMalformed(TakeCodePoint(text))) return false;
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
