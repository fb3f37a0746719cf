#pragma once

#include <QString>
#include <map>
#include <optional>
#include <string>

#include "platform/qt/dialog_listener.h"
#include "studio/mosaic/mosaic_choices.h"

/// What OK would return for an open dialog.
struct Forecast {
  MosaicChoices choices;
  // Whether a field has a fraction that the record's whole number leaves out.
  bool cutsTiles = false;
  bool cutsSpaces = false;
};

/// What OK would return now for the open dialog "Create Tesserae", read from its controls;
/// `pending` counts as if it were entered. `asked` is what the dialog was asked with; its flags are
/// 0 or 1. Throws StudioError when a control is absent or of another class.
Forecast ForecastFor(const nrvui::ui::UI_Dialog& dialog, const MosaicChoices& asked,
                     const std::optional<qtui::PendingEntry>& pending = {});

/// What a dialog's controls hold, by their IDs: numbers of fields, 1 for what is checked or
/// selected and 0 for what is not.
using DialogEntries = std::map<std::string, double>;

DialogEntries EntriesIn(const nrvui::ui::UI_Dialog& dialog);

/// Gives the control of this ID the focus when the dialog opens.
void FocusFirst(nrvui::ui::UI_Dialog& dialog, const std::string& id);

/// Does to a dialog that was just opened what a person would who wants these entries: clicks first,
/// since they change what fields hold, then types the numbers that differ. Answers, in sentences,
/// what did not become as it was; empty when all did.
QString EnterAgain(nrvui::ui::UI_Dialog& dialog, const DialogEntries& entries);
