#pragma once

#include <optional>

#include "platform/qt/dialog_listener.h"
#include "studio/caller/dialog_entries.h"
#include "studio/mosaic/artwork.h"
#include "studio/mosaic/mosaic_choices.h"

/// The choices that a dialog "Create Tesserae" starts with, and those that it would return.

/// The record and state with which the dialog for this picture starts: `former`, the choices that
/// were made for the same picture before. Without them, the flags and the number of tiles across of
/// `last`, or else colour and 100 tiles across, and as many tiles down as make them most square.
MosaicChoices ChoicesFor(const Artwork& artwork, const std::optional<MosaicChoices>& last,
                         const std::optional<MosaicChoices>& former = {});

/// What OK would return for an open dialog.
struct Forecast {
  MosaicChoices choices;
  // Whether a field has a fraction, which the record's whole number does not.
  bool cutsTiles = false;
  bool cutsSpaces = false;
};

/// The forecast for a dialog with these entries, with `pending` as if it were entered. `asked` are
/// the choices that the dialog started with; its flags are 0 or 1. Throws StudioError if an entry
/// is missing.
Forecast ForecastFor(DialogEntries entries, const MosaicChoices& asked,
                     const std::optional<qtui::PendingEntry>& pending = {});
