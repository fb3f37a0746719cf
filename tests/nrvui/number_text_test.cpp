#include "platform/nrvui/number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

using namespace nrvui::controls;
using nrvui::gestures::Refusal;

TEST(NumberText, ReadsNumbersWithTheirUnits) {
  const struct {
    std::u16string_view text;
    NumberUnit unit;
    char16_t sign;
    double value;
  } cases[] = {
      {u"40", NumberUnit::kNone, u'.', 40},
      {u"  +40\u00A0", NumberUnit::kNone, u'.', 40},
      {u"\u22121.5", NumberUnit::kNone, u'.', -1.5},
      {u"1,5", NumberUnit::kNone, u',', 1.5},
      {u"1.5", NumberUnit::kNone, u',', 1.5},
      {u".5", NumberUnit::kLength, u'.', 0.5},
      {u"1e2", NumberUnit::kLength, u'.', 100},
      {u"300", NumberUnit::kLength, u'.', 300},
      {u"300 PT", NumberUnit::kLength, u'.', 300},
      {u"300px", NumberUnit::kLength, u'.', 300},
      {u"2 in", NumberUnit::kLength, u'.', 144},
      {u"2,54\u202Fcm", NumberUnit::kLength, u',', 72},
      {u"25.4mm", NumberUnit::kLength, u'.', 72},
      {u"50 %", NumberUnit::kPercent, u'.', 50},
      {u"50", NumberUnit::kPercent, u'.', 50},
  };
  for (const auto& [text, unit, sign, value] : cases) {
    const ParsedNumber parsed = ParseNumber(text, unit, sign);
    EXPECT_EQ(parsed.refusal, Refusal::kNone) << testing::PrintToString(std::u16string(text));
    EXPECT_DOUBLE_EQ(parsed.value, value) << testing::PrintToString(std::u16string(text));
  }
}

TEST(NumberText, RefusesTheRestAndSaysWhy) {
  const struct {
    std::u16string_view text;
    NumberUnit unit;
    Refusal refusal;
  } cases[] = {
      {u"", NumberUnit::kNone, Refusal::kNotANumber},
      {u"pt", NumberUnit::kLength, Refusal::kNotANumber},
      {u"1,5", NumberUnit::kNone, Refusal::kNotANumber},  // no sign of this language
      {u"1,000", NumberUnit::kNone, Refusal::kNotANumber},
      {u"1.2.3", NumberUnit::kNone, Refusal::kNotANumber},
      {u"--1", NumberUnit::kNone, Refusal::kNotANumber},
      {u"+-1", NumberUnit::kNone, Refusal::kNotANumber},
      {u"- 1", NumberUnit::kNone, Refusal::kNotANumber},
      {u"3 4", NumberUnit::kNone, Refusal::kNotANumber},
      {u"0x10", NumberUnit::kNone, Refusal::kNotANumber},
      {u"12 parsec", NumberUnit::kLength, Refusal::kNotANumber},
      {u"\u0664", NumberUnit::kNone, Refusal::kNotANumber},
      {std::u16string_view(u"4\0", 2), NumberUnit::kNone, Refusal::kNotANumber},
      {u"nan", NumberUnit::kNone, Refusal::kNotANumber},
      {u"inf", NumberUnit::kNone, Refusal::kOutOfRange},
      {u"1e999", NumberUnit::kNone, Refusal::kOutOfRange},
      {u"1e308 in", NumberUnit::kLength, Refusal::kOutOfRange},
      {u"50 %", NumberUnit::kLength, Refusal::kOtherUnit},
      {u"5 mm", NumberUnit::kPercent, Refusal::kOtherUnit},
      {u"5 pt", NumberUnit::kNone, Refusal::kOtherUnit},
  };
  for (const auto& [text, unit, refusal] : cases) {
    EXPECT_EQ(ParseNumber(text, unit, u'.').refusal, refusal)
        << testing::PrintToString(std::u16string(text));
  }
}

TEST(NumberText, FormatsWithWhatSaysSomething) {
  const struct {
    double value;
    NumberUnit unit;
    char16_t sign;
    std::u16string_view text;
  } cases[] = {
      {300, NumberUnit::kLength, u'.', u"300 pt"},
      {100, NumberUnit::kPercent, u'.', u"100 %"},
      {40, NumberUnit::kNone, u',', u"40"},
      {-32768, NumberUnit::kNone, u'.', u"-32768"},
      {100.0 / 3, NumberUnit::kPercent, u',', u"33,3333 %"},
      {0.00004, NumberUnit::kNone, u'.', u"0"},
      {-0.00004, NumberUnit::kNone, u'.', u"0"},
      {1.5, NumberUnit::kLength, u'.', u"1.5 pt"},
  };
  for (const auto& [value, unit, sign, text] : cases) {
    EXPECT_EQ(FormatNumber(value, unit, sign).View(), text) << value;
  }
  const double largest = std::numeric_limits<double>::max();
  EXPECT_EQ(FormatNumber(-largest, NumberUnit::kNone, u'.').View().size(), 310u);
  EXPECT_EQ(FormatNumber(NAN, NumberUnit::kLength, u'.'), u"nan pt");
}

TEST(NumberText, WhatIsFormattedIsReadBackToFourDecimals) {
  std::mt19937_64 random(20);
  std::uniform_real_distribution<double> exponent(-3, 9);
  for (int i = 0; i < 2000; ++i) {
    const double value = (i % 2 ? 1 : -1) * std::pow(10.0, exponent(random));
    const auto unit = static_cast<NumberUnit>(i % 3);
    const char16_t sign = i % 5 ? u'.' : u',';
    const ParsedNumber parsed = ParseNumber(FormatNumber(value, unit, sign).View(), unit, sign);
    EXPECT_EQ(parsed.refusal, Refusal::kNone) << value;
    EXPECT_NEAR(parsed.value, value, 0.00005 + std::abs(value) * 1e-15);
  }
}
