#pragma once

#include "platform/nrvui/outcome.h"
#include "platform/nrvui/ui_dialog.h"

/// What a user can do in an open dialog. Every presenter translates its input into these calls, on
/// the user-interface thread. A gesture on a disabled or hidden control, or on a closed dialog, is
/// refused and has no effect. Otherwise it notifies the handler of the control that the user
/// operated, and no other. Exceptions of handlers reach the caller.
namespace nrvui::gestures {

enum class Key { kReturn, kEscape };

/// Enters a text in a text or number field.
NRV_EXPORT Outcome Enter(ui::UI_Dialog& dialog, ui::UI_Node& field,
                         const nrvcore::UTF16String& text);
/// Toggles a check box, selects a radio button in its group, or presses a button. The registered OK
/// and Cancel buttons then close the dialog.
NRV_EXPORT Outcome Click(ui::UI_Dialog& dialog, ui::UI_Node& control);
/// Presses a key of the keyboard: OnReturnKey or OnEscapeKey of the dialog.
NRV_EXPORT Outcome Press(ui::UI_Dialog& dialog, Key key);
/// Clicks the close box of the window: OnCloseButton of the dialog.
NRV_EXPORT Outcome Close(ui::UI_Dialog& dialog);
/// Resizes the content to a size in points, rounded down to whole points and clamped to the
/// dialog's minimum. Refused unless both sides are from 0 to 32767.
NRV_EXPORT Outcome Resize(ui::UI_Dialog& dialog, nrvcore::geom::PointT<float> contentSize);

}  // namespace nrvui::gestures
