#include "platform/nrvcore/unicode.h"

#include <gtest/gtest.h>

using namespace nrvcore::utility;

TEST(Unicode, ConversionsReplaceMalformedSequencesAndKeepAllOthers) {
  const struct {
    std::string_view utf8;
    std::u16string_view utf16;
  } texts[] = {
      {std::string_view("a\0b", 3), std::u16string_view(u"a\0b", 3)},
      {"\x7F\xC2\x80\xDF\xBF", u"\u007F\u0080\u07FF"},
      {"\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF", u"\u0800\uD7FF\uE000\uFFFF"},
      {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", u"\U00010000\U0010FFFF"},
      {"a\x80z", u"a\uFFFDz"},  // a continuation without start
      {"a\xC3", u"a\uFFFD"},    // cut at the end
      {"\xC3z", u"\uFFFDz"},
      {"\xE2\x82z", u"\uFFFDz"},                     // cut in the middle
      {"\xC0\xAF!", u"\uFFFD!"},                     // overlong
      {"\xED\xA0\x80!", u"\uFFFD!"},                 // a lone surrogate
      {"\xF4\x90\x80\x80!", u"\uFFFD!"},             // beyond the last code point
      {"\xFF\xFE", u"\uFFFD\uFFFD"},                 // bytes that never occur
      {std::string_view("\xC3\xBC", 1), u"\uFFFD"},  // ends inside a sequence
      // A sequence ends after as many bytes as its first one announces.
      {"\xC0\xAF\x80", u"\uFFFD\uFFFD"},
      {"\xE0\x80\x80\x80", u"\uFFFD\uFFFD"},
      {"\xF0\x80\x80\x80\x80", u"\uFFFD\uFFFD"},
      {"\xF8\x80", u"\uFFFD\uFFFD"},
  };
  for (const auto& [utf8, utf16] : texts) {
    const bool isValid = utf16.find(u'\uFFFD') == utf16.npos;
    EXPECT_EQ(UTF8ToUTF16(utf8).View(), utf16);
    EXPECT_EQ(IsValidUTF8(utf8), isValid);
    EXPECT_EQ(UTF16ToUTF8(utf16) == utf8, isValid);
  }
  const std::u16string halves = {u'x', 0xDC00, 0xD800, u'y', 0xD800};
  EXPECT_EQ(UTF16ToUTF8(halves), "x\xEF\xBF\xBD\xEF\xBF\xBDy\xEF\xBF\xBD");
  EXPECT_EQ(UTF16ToUTF8(std::u16string_view(u"\U0001F600", 1)), "\xEF\xBF\xBD");
  EXPECT_EQ(AsciiToUTF16("Dark \x80").View(), u"Dark \uFFFD");
}
