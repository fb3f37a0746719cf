#pragma once

#include "platform/nrvui/outcome.h"
#include "platform/nrvui/ui_dialog.h"

/// What a user can do to an open dialog. Every presenter turns its input into these calls, on the
/// user-interface thread. A gesture on a disabled or hidden control, or on a closed dialog, does
/// nothing and is refused. It notifies only the handler of the control that was touched, of a
/// change or of a press. Exceptions of handlers reach the caller.
namespace nrvui::gestures {

enum class Key { kReturn, kEscape };

/// Enters a text in a text or number field.
NRV_EXPORT Outcome Enter(ui::UI_Dialog& dialog, ui::UI_Node& field,
                         const nrvcore::UTF16String& text);
/// Toggles a check box, selects a radio button within its group, or presses a button; the
/// registered OK and Cancel buttons then close the dialog.
NRV_EXPORT Outcome Click(ui::UI_Dialog& dialog, ui::UI_Node& control);
NRV_EXPORT Outcome Press(ui::UI_Dialog& dialog, Key key);
NRV_EXPORT Outcome Close(ui::UI_Dialog& dialog);
/// Resizes the content to a size in points, rounded down to whole points and clamped to the
/// dialog's minimum. Refused when a side is not between 0 and 32767.
NRV_EXPORT Outcome Resize(ui::UI_Dialog& dialog, nrvcore::geom::PointT<float> contentSize);

}  // namespace nrvui::gestures
