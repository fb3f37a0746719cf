#pragma once

#include <QString>
#include <map>
#include <string>

#include "platform/nrvui/ui_dialog.h"
#include "studio/mosaic/mosaic_choices.h"

/// The values of a dialog's controls, by their IDs: the numbers of fields, as the dialog computes
/// with them; 1 for a check box or radio button that is on, 0 for one that is off.
using DialogEntries = std::map<std::string, float>;

DialogEntries EntriesIn(const nrvui::ui::UI_Dialog& dialog);

/// The entries of a mosaic that another picture can have too: without a size in points that was the
/// picture's own. `choices` are what the dialog returned.
DialogEntries EntriesForOtherPictures(DialogEntries entries, const MosaicChoices& choices);

/// The mosaic that these entries lead to, as in "40 by 23 tiles, colour, 50 by 50 %", in the user's
/// language. A size that is the picture's own and a spacing of 0 are left out.
QString DescriptionOf(const DialogEntries& entries);

/// Gives the control of this ID the focus when the dialog opens.
void FocusFirst(nrvui::ui::UI_Dialog& dialog, const std::string& id);

/// Performs on a dialog that has just opened the gestures that lead to these entries: clicks first,
/// since they change what fields hold, then the numbers that differ. Controls without an entry stay
/// as they are. A size in points is left out when the dialog can only count in percent. Returns
/// sentences about the entries that the dialog did not accept; empty when it accepted all.
QString EnterAgain(nrvui::ui::UI_Dialog& dialog, const DialogEntries& entries);
