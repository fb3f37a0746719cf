#pragma once

#include "platform/nrvcore/string.h"

namespace nrvui::gestures {

/// Why a gesture did nothing.
enum class Refusal {
  kNone,
  kDialogClosed,
  kStaysOpen,  // the key or button does not close the dialog in its present state
  kNoCloseBox,
  kDisabled,
  kHidden,
  kNotEditable,
  kNotClickable,
  kMissing,
  kNotANumber,
  kTwoReadings,
  kOutOfRange,
  kOtherUnit,
  kNotASize,
};

/// The key of the sentence for the user; its %1 is the entry.
NRV_EXPORT const char* TextFor(Refusal refusal);

enum class OutcomeKind {
  kDone,
  kClampedToUpperBound,
  kClampedToLowerBound,
  kRefused,
};

/// The result of a gesture.
struct Outcome {
  OutcomeKind kind = OutcomeKind::kDone;
  Refusal refusal = Refusal::kNone;    // kNone unless refused
  bool changed = false;                // whether the control has another value now
  nrvcore::UTF16String entered{};      // as typed, when clamped or refused
  nrvcore::UTF16String replacement{};  // what the field holds instead, when clamped or refused

  bool IsRefused() const { return kind == OutcomeKind::kRefused; }
  bool IsClamped() const {
    return kind == OutcomeKind::kClampedToUpperBound || kind == OutcomeKind::kClampedToLowerBound;
  }
};

NRV_EXPORT Outcome Refused(Refusal refusal, const nrvcore::UTF16String& entered = {});

/// A sentence for the user, in their language. Empty when the gesture was done as entered.
NRV_EXPORT nrvcore::UTF16String Describe(const Outcome& outcome);

}  // namespace nrvui::gestures
