#pragma once

#include "platform/nrvui/ui_dialog.h"
#include "studio/mosaic/mosaic_choices.h"

/// What OK would return now for the open dialog "Create Tesserae", read from its controls as a
/// person reads them. `asked` is what the dialog was asked with; its flags are 0 or 1. Throws
/// StudioError when a control is absent or of another class.
MosaicChoices ChoicesOnOk(const nrvui::ui::UI_Dialog& dialog, const MosaicChoices& asked);
