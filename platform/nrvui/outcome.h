#pragma once

#include "platform/nrvcore/string.h"

namespace nrvui::gestures {

/// Why a gesture was refused.
enum class Refusal {
  kNone,
  kDialogClosed,
  kStaysOpen,  // the key or button cannot close the dialog in its present state
  kNoCloseBox,
  kDisabled,
  kHidden,
  kNotEditable,
  kNotClickable,
  kMissing,
  kNotANumber,
  kAmbiguous,
  kOutOfRange,
  kOtherUnit,
  kNotASize,
};

/// The localisation key of the sentence for the user; %1 in it stands for the entry.
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
  Refusal refusal = Refusal::kNone;    // the reason when kind is kRefused
  bool changed = false;                // whether the control's value differs from before
  nrvcore::UTF16String entered{};      // as typed; empty unless clamped or refused
  nrvcore::UTF16String replacement{};  // what the field shows now; empty unless clamped or refused

  bool IsRefused() const { return kind == OutcomeKind::kRefused; }
  bool IsClamped() const {
    return kind == OutcomeKind::kClampedToUpperBound || kind == OutcomeKind::kClampedToLowerBound;
  }
};

NRV_EXPORT Outcome Refused(Refusal refusal, const nrvcore::UTF16String& entered = {});

/// A sentence for the user, in their language. Empty unless the outcome is clamped or refused.
NRV_EXPORT nrvcore::UTF16String Describe(const Outcome& outcome);

}  // namespace nrvui::gestures
