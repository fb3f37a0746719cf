#pragma once

#include <optional>

#include "platform/nrvui/ui_dialog.h"
#include "platform/qt/dialog_listener.h"
#include "studio/mosaic/artwork.h"
#include "studio/mosaic/mosaic_choices.h"

/// The choices that a dialog "Create Tesserae" starts with, and those that it would return.

/// The record and state for the dialog over this picture. `former` are the choices that were made
/// for the same picture before. Without them, flags and tiles across are those of `last`, or else
/// colour and a hundred across, and the tiles are as square as they can be.
MosaicChoices ChoicesFor(const Artwork& artwork, const std::optional<MosaicChoices>& last,
                         const std::optional<MosaicChoices>& former = {});

/// What OK would return for an open dialog.
struct Forecast {
  MosaicChoices choices;
  // Whether a field has a fraction that the record's whole number leaves out.
  bool cutsTiles = false;
  bool cutsSpaces = false;
};

/// Reads the forecast from the controls of an open dialog; `pending` counts as if it were entered.
/// `asked` are the choices that the dialog started with; its flags are 0 or 1. Throws StudioError
/// when a control is absent or of another class.
Forecast ForecastFor(const nrvui::ui::UI_Dialog& dialog, const MosaicChoices& asked,
                     const std::optional<qtui::PendingEntry>& pending = {});
