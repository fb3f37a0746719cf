#pragma once

#include "platform/nrvui/outcome.h"
#include "platform/nrvui/ui_dialog.h"

/// What a person can do to an open dialog. Every presenter turns its events into these. A gesture
/// on a control that is disabled or hidden, or on a dialog that has closed, does nothing and says
/// so. Only the handler of the touched control is notified: of a change, or of a press. Exceptions
/// of handlers pass through.
namespace nrvui::gestures {

enum class Key { kReturn, kEscape };

/// Ends an edit of a text or number field.
NRV_EXPORT Outcome Enter(ui::UI_Dialog& dialog, ui::UI_Node& field,
                         const nrvcore::UTF16String& text);
/// Toggles a check box, selects a radio button within its group, or presses a button; the
/// registered OK and Cancel buttons then close the dialog.
NRV_EXPORT Outcome Click(ui::UI_Dialog& dialog, ui::UI_Node& control);
NRV_EXPORT Outcome Press(ui::UI_Dialog& dialog, Key key);
NRV_EXPORT Outcome Close(ui::UI_Dialog& dialog);
/// Gives the content another size in points, which counts downwards to whole ones and becomes at
/// least the dialog's minimum. Refused when a side is not between 0 and 32767.
NRV_EXPORT Outcome Resize(ui::UI_Dialog& dialog, nrvcore::geom::PointT<float> contentSize);

}  // namespace nrvui::gestures
