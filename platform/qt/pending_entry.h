#pragma once

#include "platform/nrvui/ui_edits.h"

namespace qtui {

/// A number that a person has typed but not entered: the field is still being edited, and its node
/// holds the former number. Entering it would need no message.
struct PendingEntry {
  const nrvui::controls::UI_NumberEdit* field;
  double number;
};

}  // namespace qtui
