#pragma once

#include <charconv>
#include <string_view>

#include "platform/nrvcore/string.h"
#include "platform/nrvui/outcome.h"

namespace nrvui::controls {

/// The unit of a number field. Lengths are in points, 72 to the inch.
enum class NumberUnit { kNone, kPercent, kLength };

struct ParsedNumber {
  double value = 0;  // in the field's unit
  gestures::Refusal refusal = gestures::Refusal::kNone;
};

/// Like std::from_chars for double, which libc++ 14 lacks.
std::from_chars_result ReadNumber(std::string_view text, double& value);

/// Parses a number with an optional unit: pt, px (one point), mm, cm, in for lengths, % for
/// percentages. A number without a unit is in the field's unit. `decimalSign` is ',' or '.'; the
/// other sign may separate groups of three digits. Anywhere else '.' counts as a decimal sign and
/// ',' is refused as ambiguous. Full-width forms are accepted. Refuses texts that are not numbers,
/// numbers outside the range of double, and units of another kind.
NRV_EXPORT ParsedNumber ParseNumber(std::u16string_view text, NumberUnit fieldUnit,
                                    char16_t decimalSign);

/// Formats a number as in "300 pt", "33.3333 %" or "40": at most four decimals, without trailing
/// zeros.
NRV_EXPORT nrvcore::UTF16String FormatNumber(double value, NumberUnit unit, char16_t decimalSign);

}  // namespace nrvui::controls
