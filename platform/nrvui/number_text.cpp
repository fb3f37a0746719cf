#include "platform/nrvui/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "platform/nrvcore/unicode.h"
#include "platform/nrvui/read_number.h"

namespace nrvui::controls {

using gestures::Refusal;

namespace {

constexpr int kDecimals = 4;
constexpr std::size_t kLongestFixedNumber =
    std::string_view("-1.").size() + std::numeric_limits<double>::max_exponent10 + kDecimals;

struct NamedUnit {
  std::string_view name;
  NumberUnit kind;
  double factor;  // to the unit of fields
};

constexpr std::array kUnits = {
    NamedUnit{"pt", NumberUnit::kLength, 1.0},
    NamedUnit{"px", NumberUnit::kLength, 1.0},
    NamedUnit{"mm", NumberUnit::kLength, 72.0 / 25.4},
    NamedUnit{"cm", NumberUnit::kLength, 72.0 / 2.54},
    NamedUnit{"in", NumberUnit::kLength, 72.0},
    NamedUnit{"%", NumberUnit::kPercent, 1.0},
};

constexpr std::string_view kSuffixes[] = {"", " %", " pt"};  // by NumberUnit

constexpr std::u16string_view kBlanks = u" \t\u00A0\u2009\u202F\u3000";
constexpr char16_t kMinusSign = u'\u2212';
constexpr char kForeign = '\x7F';  // replaces characters that numbers and units lack
constexpr char kDecimal = '\x1F';  // replaces the language's decimal sign
constexpr std::size_t kGroup = 3;  // digits

template <class View>
View Trimmed(View text, View blanks) {
  const std::size_t begin = std::min(text.find_first_not_of(blanks), text.size());
  text.remove_prefix(begin);
  return text.substr(0, text.find_last_not_of(blanks) + 1);
}

/// East Asian keyboards also produce full-width forms of all ASCII characters, in the same order.
constexpr char16_t Narrow(char16_t character) {
  const bool isWide = character >= u'\uFF01' && character <= u'\uFF5E';
  return isWide ? static_cast<char16_t>(character - u'\uFF01' + u'!') : character;
}

/// The text in lower-case ASCII, with spaces for all blanks and kDecimal for the decimal sign.
std::string Plain(std::u16string_view text, char16_t decimalSign) {
  std::string plain;
  for (const char16_t typed : Trimmed(text, kBlanks)) {
    const char16_t character = Narrow(typed);
    if (character == decimalSign) {
      plain += kDecimal;
    } else if (character == kMinusSign) {
      plain += '-';
    } else if (kBlanks.find(character) != kBlanks.npos) {
      plain += ' ';
    } else if (character >= u'A' && character <= u'Z') {
      plain += static_cast<char>(character - u'A' + u'a');
    } else {
      plain += static_cast<char>(std::min<char16_t>(character, kForeign));
    }
  }
  return plain;
}

/// Whether `sign` separates groups of three digits, as in "1,234", and occurs nowhere else.
bool IsGrouped(std::string_view digits, char sign) {
  std::size_t place = digits.find(sign);
  if (place > kGroup || digits.starts_with('0') || digits.starts_with(sign)) return false;
  for (; place < digits.size(); place += kGroup + 1) {
    const std::string_view group = digits.substr(place + 1, kGroup);
    if (digits[place] != sign || group.size() < kGroup || group.find(sign) != group.npos)
      return false;
  }
  return true;
}

/// Removes grouping signs and makes '.' the decimal sign. False when the other sign is ambiguous.
bool NormalizeSigns(std::string& text, char16_t decimalSign) {
  const char sign = decimalSign == u',' ? '.' : ',';
  const std::size_t begin = std::min(text.find_first_not_of("+-"), text.size());
  const std::size_t end =
      std::min(text.find_first_not_of(std::string("0123456789") + sign, begin), text.size());
  const std::string digits = text.substr(begin, end - begin);
  const bool isGrouped = IsGrouped(digits, sign);
  if (isGrouped)
    text.erase(std::remove(text.begin(), text.begin() + end, sign), text.begin() + end);
  std::replace(text.begin(), text.end(), kDecimal, '.');
  return isGrouped || sign == '.' || digits.find(sign) == digits.npos;
}

ParsedNumber No(Refusal refusal) {
  return {0, refusal};
}

}  // namespace

ParsedNumber ParseNumber(std::u16string_view text, NumberUnit fieldUnit, char16_t decimalSign) {
  std::string plain = Plain(text, decimalSign);
  if (plain.empty()) return No(Refusal::kMissing);
  if (!NormalizeSigns(plain, decimalSign)) return No(Refusal::kTwoReadings);
  std::string_view rest = plain;
  if (rest.starts_with('+') && !rest.starts_with("+-")) rest.remove_prefix(1);

  double value = std::numeric_limits<double>::infinity();  // from_chars leaves it when out of range
  const auto [end, error] = ReadNumber(rest.data(), rest.data() + rest.size(), value);
  if (error == std::errc::invalid_argument) return No(Refusal::kNotANumber);
  rest.remove_prefix(end - rest.data());
  const std::string_view name = Trimmed(rest, std::string_view(" "));

  double factor = 1.0;
  if (!name.empty()) {
    const auto* unit = std::find_if(kUnits.begin(), kUnits.end(),
                                    [name](const NamedUnit& known) { return known.name == name; });
    if (unit == kUnits.end()) return No(Refusal::kNotANumber);
    if (unit->kind != fieldUnit) return No(Refusal::kOtherUnit);
    factor = unit->factor;
  }
  if (std::isnan(value)) return No(Refusal::kNotANumber);
  if (!std::isfinite(value * factor)) return No(Refusal::kOutOfRange);
  return {value * factor, Refusal::kNone};
}

nrvcore::UTF16String FormatNumber(double value, NumberUnit unit, char16_t decimalSign) {
  std::array<char, kLongestFixedNumber> buffer;
  const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                          std::chars_format::fixed, kDecimals);
  std::string text(buffer.data(), end);
  const std::size_t sign = text.find('.');
  if (sign != std::string::npos) {
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
  }
  if (text == "-0") text = "0";
  text += kSuffixes[static_cast<int>(unit)];

  std::u16string out(text.begin(), text.end());
  std::replace(out.begin(), out.end(), u'.', decimalSign);
  return nrvcore::UTF16String(out);
}

}  // namespace nrvui::controls
