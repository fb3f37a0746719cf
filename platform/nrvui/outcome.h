#pragma once

#include "platform/nrvcore/string.h"

namespace nrvui::gestures {

/// Why a gesture did nothing.
enum class Refusal {
  kNone,
  kDialogClosed,
  kStaysOpen,  // the key or button does not close the dialog as things stand
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

/// The key of the sentence that a person reads; its %1 is what they asked for.
NRV_EXPORT const char* TextFor(Refusal refusal);

enum class OutcomeKind {
  kDone,
  kPulledDown,  // more than the upper bound, which was put in its place
  kPulledUp,    // less than the lower bound, likewise
  kRefused,
};

/// What became of a gesture.
struct Outcome {
  OutcomeKind kind = OutcomeKind::kDone;
  Refusal refusal = Refusal::kNone;  // kNone unless refused
  bool changed = false;              // whether the control now has another value
  nrvcore::UTF16String entered{};    // as it was typed, when pulled or refused for what it is
  nrvcore::UTF16String put{};        // what the field holds instead, when pulled or refused

  bool IsRefused() const { return kind == OutcomeKind::kRefused; }
  bool IsPulled() const {
    return kind == OutcomeKind::kPulledDown || kind == OutcomeKind::kPulledUp;
  }
};

NRV_EXPORT Outcome Refused(Refusal refusal, const nrvcore::UTF16String& entered = {});

/// A sentence for the person, in their language. Empty when all was done as asked.
NRV_EXPORT nrvcore::UTF16String Describe(const Outcome& outcome);

}  // namespace nrvui::gestures
