#include "platform/nrvui/outcome.h"

#include "platform/nrvcore/localizer.h"

namespace nrvui::gestures {

namespace {

constexpr const char* kAboveUpperBoundText =
    "$$$/nrvui/Gesture/AboveUpperBound=%1 is more than %2; it was changed to %2.";
constexpr const char* kBelowLowerBoundText =
    "$$$/nrvui/Gesture/BelowLowerBound=%1 is less than %2; it was changed to %2.";

constexpr const char* kMissingText =
    "$$$/nrvui/Gesture/MissingKeeps=A number is missing; the field keeps %2.";

const char* TextFor(const Outcome& outcome) {
  switch (outcome.kind) {
    case OutcomeKind::kDone:
      break;
    case OutcomeKind::kClampedToUpperBound:
      return kAboveUpperBoundText;
    case OutcomeKind::kClampedToLowerBound:
      return kBelowLowerBoundText;
    case OutcomeKind::kRefused:
      return outcome.refusal == Refusal::kMissing ? kMissingText : TextFor(outcome.refusal);
  }
  return "";
}

}  // namespace

const char* TextFor(Refusal refusal) {
  switch (refusal) {
    case Refusal::kNone:
      break;
    case Refusal::kDialogClosed:
      return "$$$/nrvui/Gesture/DialogClosed=The dialog has already closed.";
    case Refusal::kStaysOpen:
      return "$$$/nrvui/Gesture/StaysOpen=The dialog cannot be closed this way now.";
    case Refusal::kNoCloseBox:
      return "$$$/nrvui/Gesture/NoCloseBox=The dialog's window cannot be closed.";
    case Refusal::kDisabled:
      return "$$$/nrvui/Gesture/Disabled=The control is disabled.";
    case Refusal::kHidden:
      return "$$$/nrvui/Gesture/Hidden=The control is hidden.";
    case Refusal::kNotEditable:
      return "$$$/nrvui/Gesture/NotEditable=Nothing can be entered here.";
    case Refusal::kNotClickable:
      return "$$$/nrvui/Gesture/NotClickable=This control cannot be clicked.";
    case Refusal::kMissing:
      return "$$$/nrvui/Gesture/Missing=A number is missing.";
    case Refusal::kNotANumber:
      return "$$$/nrvui/Gesture/NotANumber=\"%1\" is not a number.";
    case Refusal::kAmbiguous:
      return "$$$/nrvui/Gesture/Ambiguous=\"%1\" is ambiguous; write a point before decimals.";
    case Refusal::kOutOfRange:
      return "$$$/nrvui/Gesture/OutOfRange=\"%1\" is outside the range of numbers.";
    case Refusal::kOtherUnit:
      return "$$$/nrvui/Gesture/OtherUnit=The unit of \"%1\" cannot be used here.";
    case Refusal::kNotASize:
      return "$$$/nrvui/Gesture/NotASize=A window cannot have the size %1.";
  }
  return "";
}

Outcome Refused(Refusal refusal, const nrvcore::UTF16String& entered) {
  return {.kind = OutcomeKind::kRefused, .refusal = refusal, .entered = entered};
}

nrvcore::UTF16String Describe(const Outcome& outcome) {
  using nrvcore::config::ReplacementValue;
  return nrvcore::config::Localizer::Get().Localize(
      TextFor(outcome), {ReplacementValue(outcome.entered), ReplacementValue(outcome.replacement)});
}

}  // namespace nrvui::gestures
