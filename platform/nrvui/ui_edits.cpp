#include "platform/nrvui/ui_edits.h"

#include <algorithm>

#include "platform/nrvcore/error.h"
#include "platform/nrvcore/localizer.h"

namespace nrvui::controls {

UI_TextEdit::~UI_TextEdit() = default;

nrvcore::UTF16String UI_TextEdit::GetValue() const {
  return text;
}

void UI_TextEdit::SetValue(const nrvcore::UTF16String& newText) {
  UI_SetMember(text, newText);
}

gestures::Outcome UI_TextEdit::AcceptEntry(const nrvcore::UTF16String& entry) {
  gestures::Outcome outcome;
  outcome.changed = !(entry == GetValue());
  if (outcome.changed) SetValue(entry);
  return outcome;
}

using gestures::Outcome;
using gestures::OutcomeKind;
using gestures::Refusal;

namespace {

ParsedNumber Parse(const nrvcore::UTF16String& text, NumberUnit unit) {
  return ParseNumber(text.View(), unit, nrvcore::config::Localizer::Get().GetDecimalSign());
}

}  // namespace

UI_NumberEdit::~UI_NumberEdit() = default;

double UI_NumberEdit::GetNumber() const {
  return number;
}

void UI_NumberEdit::SetNumber(double newNumber) {
  UI_SetMember(number, newNumber);
}

void UI_NumberEdit::SetLowerBound(double bound) {
  UI_SetMember(lowerBound, bound);
}

void UI_NumberEdit::SetUpperBound(double bound) {
  UI_SetMember(upperBound, bound);
}

double UI_NumberEdit::GetUpperBound() const {
  return std::max(upperBound, lowerBound);
}

NumberUnit UI_NumberEdit::GetUnit() const {
  return NumberUnit::kNone;
}

nrvcore::UTF16String UI_NumberEdit::GetValue() const {
  return Format(GetNumber());
}

void UI_NumberEdit::SetValue(const nrvcore::UTF16String& newText) {
  const ParsedNumber parsed = Parse(newText, GetUnit());
  if (parsed.refusal != Refusal::kNone)
    nrvcore::config::ThrowError(gestures::TextFor(parsed.refusal),
                                nrvcore::config::ReplacementValue(newText));
  SetNumber(parsed.value);
}

Outcome UI_NumberEdit::AcceptEntry(const nrvcore::UTF16String& entry) {
  const ParsedEntry parsed = ParseEntry(entry);
  if (parsed.outcome.changed) SetNumber(parsed.number);
  return parsed.outcome;
}

UI_NumberEdit::ParsedEntry UI_NumberEdit::ParseEntry(const nrvcore::UTF16String& entry) const {
  const ParsedNumber parsed = Parse(entry, GetUnit());
  if (parsed.refusal != Refusal::kNone) {
    ParsedEntry refused{0, gestures::Refused(parsed.refusal, entry)};
    refused.outcome.replacement = GetValue();
    return refused;
  }
  ParsedEntry accepted{std::clamp(parsed.value, lowerBound, GetUpperBound()), {}};
  Outcome& outcome = accepted.outcome;
  const nrvcore::UTF16String shown = Format(accepted.number);
  // Rounding for display may exceed the bound; an entry with the same text as the bound is valid.
  if (accepted.number != parsed.value && shown != Format(parsed.value)) {
    outcome.kind = parsed.value > accepted.number ? OutcomeKind::kClampedToUpperBound
                                                  : OutcomeKind::kClampedToLowerBound;
    outcome.entered = entry;
    outcome.replacement = shown;
  }
  // Compares numbers, not texts: the field's number may have more decimals than it shows.
  outcome.changed = accepted.number != GetNumber();
  return accepted;
}

nrvcore::UTF16String UI_NumberEdit::Format(double value) const {
  return FormatNumber(value, GetUnit(), nrvcore::config::Localizer::Get().GetDecimalSign());
}

template <class Base>
UI_UnitNumberBaseT<Base>::~UI_UnitNumberBaseT() = default;

template <class Base>
void UI_UnitNumberBaseT<Base>::SetCustomUnit(CustomNumberEditUnit customUnit) {
  unit = customUnit == kPercentUnit ? NumberUnit::kPercent : NumberUnit::kLength;
  this->UI_Changed();
}

template <class Base>
NumberUnit UI_UnitNumberBaseT<Base>::GetUnit() const {
  return unit;
}

template class UI_UnitNumberBaseT<UI_NumberEdit>;

UI_UnitNumberEdit::~UI_UnitNumberEdit() = default;

}  // namespace nrvui::controls
