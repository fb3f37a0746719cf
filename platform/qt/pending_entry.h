#pragma once

#include "platform/nrvui/ui_edits.h"

namespace qtui {

/// A number that the user has typed but not entered: the field is still being edited, and its node
/// holds the previous number. The number is within the field's bounds.
struct PendingEntry {
  const nrvui::controls::UI_NumberEdit* field;
  double number;
};

}  // namespace qtui
