#include <cmath>
#include <string_view>

#include "fuzz/fuzzer.h"
#include "platform/nrvcore/unicode.h"
#include "platform/nrvui/number_text.h"

using nrvui::controls::FormatNumber;
using nrvui::controls::NumberUnit;
using nrvui::controls::ParseNumber;
using nrvui::gestures::Refusal;

/// The first byte selects a number field's unit and decimal sign; the rest is the text entered by
/// the user. Parsing rejects it, or returns a finite number that survives formatting and parsing
/// again.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const auto unit = static_cast<NumberUnit>(data[0] % 3);
  const char16_t decimalSign = data[0] / 3 % 2 ? u',' : u'.';
  const auto entry =
      nrvcore::utility::UTF8ToUTF16({reinterpret_cast<const char*>(data) + 1, size - 1});
  const auto parsed = ParseNumber(entry.View(), unit, decimalSign);
  if (parsed.refusal != Refusal::kNone) return 0;
  Require(std::isfinite(parsed.value));
  const auto shown = FormatNumber(parsed.value, unit, decimalSign);
  const auto again = ParseNumber(shown.View(), unit, decimalSign);
  Require(again.refusal == Refusal::kNone);
  Require(std::abs(again.value - parsed.value) <= 0.5001e-4 + std::abs(parsed.value) * 1e-15);
  return 0;
}
