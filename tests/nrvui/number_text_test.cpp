#include "platform/nrvui/number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace nrvui::controls;
using nrvui::gestures::Refusal;
using enum nrvui::controls::NumberUnit;

TEST(ParseNumber, ConvertsUnitsAndRefusesAmbiguousOrMalformedText) {
  const struct {
    std::u16string_view text;
    NumberUnit unit;
    char16_t sign;
    double value;
    Refusal refusal = Refusal::kNone;
  } cases[] = {
      {u"  +40\u00A0", kNone, u'.', 40},
      {u"\u22121.5", kNone, u'.', -1.5},
      {u"1.5", kNone, u',', 1.5},
      {u"1e2", kLength, u'.', 100},
      {u"300 PT", kLength, u'.', 300},
      {u"2,54\u202Fcm", kLength, u',', 72},
      {u"25.4mm", kLength, u'.', 72},
      {u"\uFF0D\uFF10\uFF19\uFF0E\uFF15\u3000\uFF05", kPercent, u'.', -9.5},  // full-width forms
      {u"2\uFF0C54\uFF43\uFF2D", kLength, u',', 72},
      {u"123,456,789.5 pt", kLength, u'.', 123456789.5},
      {u"-1.000", kNone, u',', -1000},
      {u"1.234.567,5", kNone, u',', 1234567.5},
      {u"0.500", kNone, u',', 0.5},
      {u".500", kNone, u',', 0.5},
      {u"1.2345678", kNone, u',', 1.2345678},
      {u"12,5", kNone, u'.', 0, Refusal::kAmbiguous},
      {u"1,00,000", kNone, u'.', 0, Refusal::kAmbiguous},
      {u"1.2345.678", kNone, u',', 0, Refusal::kNotANumber},
      {u" ", kNone, u'.', 0, Refusal::kMissing},
      {u"+-1", kNone, u'.', 0, Refusal::kNotANumber},
      {u"12 parsec", kLength, u'.', 0, Refusal::kNotANumber},
      {std::u16string_view(u"4\0", 2), kNone, u'.', 0, Refusal::kNotANumber},
      {u"nan", kNone, u'.', 0, Refusal::kNotANumber},
      {u"inf", kNone, u'.', 0, Refusal::kOutOfRange},
      {u"1e308 in", kLength, u'.', 0, Refusal::kOutOfRange},
      {u"50 %", kLength, u'.', 0, Refusal::kOtherUnit},
  };
  for (const auto& [text, unit, sign, value, refusal] : cases) {
    const ParsedNumber parsed = ParseNumber(text, unit, sign);
    EXPECT_EQ(parsed.refusal, refusal) << testing::PrintToString(std::u16string(text));
    EXPECT_DOUBLE_EQ(parsed.value, value) << testing::PrintToString(std::u16string(text));
  }
}

TEST(FormatNumber, ShowsUnitAndAtMostFourDecimals) {
  const struct {
    double value;
    NumberUnit unit;
    char16_t sign;
    std::u16string_view text;
  } cases[] = {
      {300, kLength, u'.', u"300 pt"},           {-32768, kNone, u',', u"-32768"},
      {100.0 / 3, kPercent, u',', u"33,3333 %"}, {-0.00004, kNone, u'.', u"0"},
      {NAN, kLength, u'.', u"nan pt"},
  };
  for (const auto& [value, unit, sign, text] : cases) {
    EXPECT_EQ(FormatNumber(value, unit, sign).View(), text) << value;
  }
  const double largest = std::numeric_limits<double>::max();
  EXPECT_EQ(FormatNumber(-largest, kNone, u'.').View().size(), 310u);
}
