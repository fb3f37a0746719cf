#include "platform/nrvui/number_text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

#include "platform/nrvcore/unicode.h"

namespace nrvui::controls {

using gestures::Refusal;

namespace {

constexpr int kDecimals = 4;
constexpr std::size_t kMaxFixedLength =
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

constexpr std::string_view kSuffixes[] = {"", " %", " pt"};  // indexed by NumberUnit

constexpr std::u16string_view kBlanks = u" \t\u00A0\u2009\u202F\u3000";
constexpr char16_t kMinusSign = u'\u2212';
constexpr char kOtherCharacter = '\x7F';  // stands for any character outside ASCII
constexpr char kDecimal = '\x1F';         // stands for the language's decimal sign
constexpr std::size_t kGroup = 3;         // digits in a group

template <class View>
View Trimmed(View text, View blanks) {
  const std::size_t begin = std::min(text.find_first_not_of(blanks), text.size());
  text.remove_prefix(begin);
  return text.substr(0, text.find_last_not_of(blanks) + 1);
}

/// The ASCII character of a full-width form, as East Asian input methods produce them.
constexpr char16_t ToHalfWidth(char16_t character) {
  const bool isFullWidth = character >= u'\uFF01' && character <= u'\uFF5E';
  return isFullWidth ? static_cast<char16_t>(character - u'\uFF01' + u'!') : character;
}

/// The text in lower-case ASCII, with a space for each blank and kDecimal for the decimal sign.
std::string ToAscii(std::u16string_view text, char16_t decimalSign) {
  std::string ascii;
  for (const char16_t typed : Trimmed(text, kBlanks)) {
    const char16_t character = ToHalfWidth(typed);
    if (character == decimalSign) {
      ascii += kDecimal;
    } else if (character == kMinusSign) {
      ascii += '-';
    } else if (kBlanks.find(character) != kBlanks.npos) {
      ascii += ' ';
    } else if (character >= u'A' && character <= u'Z') {
      ascii += static_cast<char>(character - u'A' + u'a');
    } else {
      ascii += static_cast<char>(std::min<char16_t>(character, kOtherCharacter));
    }
  }
  return ascii;
}

/// Whether every occurrence of `sign` separates groups of three digits, as in "1,234".
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

/// Removes grouping signs and makes '.' the decimal sign. Returns false for an ambiguous ','.
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

}  // namespace

std::from_chars_result ReadNumber(std::string_view text, double& value) {
  static const locale_t cLocale = newlocale(LC_ALL_MASK, "C", nullptr);
  // strtod also accepts leading blanks, a plus sign and hexadecimal numbers.
  const std::string number(text.substr(0, text.find_first_of("xX")));
  if (number.find_first_of(" \t\n\v\f\r+") == 0) return {text.data(), std::errc::invalid_argument};
  char* numberEnd = nullptr;
  errno = 0;
  const double parsed = strtod_l(number.c_str(), &numberEnd, cLocale);
  const char* const end = text.data() + (numberEnd - number.c_str());
  if (end == text.data()) return {end, std::errc::invalid_argument};
  // ERANGE is also set for subnormal numbers, which are valid.
  if (errno == ERANGE && (parsed == 0 || std::isinf(parsed)))
    return {end, std::errc::result_out_of_range};
  value = parsed;
  return {end, std::errc()};
}

ParsedNumber ParseNumber(std::u16string_view text, NumberUnit fieldUnit, char16_t decimalSign) {
  std::string ascii = ToAscii(text, decimalSign);
  if (ascii.empty()) return {.refusal = Refusal::kMissing};
  if (!NormalizeSigns(ascii, decimalSign)) return {.refusal = Refusal::kAmbiguous};
  std::string_view rest = ascii;
  if (rest.starts_with('+') && !rest.starts_with("+-")) rest.remove_prefix(1);

  double value = std::numeric_limits<double>::infinity();  // stays when the number is out of range
  const auto [end, error] = ReadNumber(rest, value);
  if (error == std::errc::invalid_argument) return {.refusal = Refusal::kNotANumber};
  rest.remove_prefix(end - rest.data());
  const std::string_view name = Trimmed(rest, std::string_view(" "));

  double factor = 1.0;
  if (!name.empty()) {
    const auto* unit = std::find_if(kUnits.begin(), kUnits.end(),
                                    [name](const NamedUnit& known) { return known.name == name; });
    if (unit == kUnits.end()) return {.refusal = Refusal::kNotANumber};
    if (unit->kind != fieldUnit) return {.refusal = Refusal::kOtherUnit};
    factor = unit->factor;
  }
  if (std::isnan(value)) return {.refusal = Refusal::kNotANumber};
  if (!std::isfinite(value * factor)) return {.refusal = Refusal::kOutOfRange};
  return {value * factor, Refusal::kNone};
}

nrvcore::UTF16String FormatNumber(double value, NumberUnit unit, char16_t decimalSign) {
  std::array<char, kMaxFixedLength> buffer;
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
