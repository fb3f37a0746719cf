#pragma once

#include <string_view>

#include "platform/nrvcore/string.h"
#include "platform/nrvui/outcome.h"

namespace nrvui::controls {

/// What a number field counts in. Lengths are points, 72 to the inch.
enum class NumberUnit { kNone, kPercent, kLength };

struct ParsedNumber {
  double value = 0;  // in the field's unit
  gestures::Refusal refusal = gestures::Refusal::kNone;
};

/// Reads a number with an optional unit: pt, px (a point each), mm, cm, in for lengths, % for
/// percentages; without one it is in the field's unit. Decimals follow `decimalSign`. Of ',' and
/// '.' the other sign may stand between groups of three digits; a '.' that stands there otherwise
/// is a decimal sign, a ',' is refused. Wide forms of all these count as well. Refuses what is no
/// number, too large or small to be counted, or of another kind of unit.
NRV_EXPORT ParsedNumber ParseNumber(std::u16string_view text, NumberUnit fieldUnit,
                                    char16_t decimalSign);

/// "300 pt", "33.3333 %", "40": at most four decimals, none that say nothing.
NRV_EXPORT nrvcore::UTF16String FormatNumber(double value, NumberUnit unit, char16_t decimalSign);

}  // namespace nrvui::controls
