#pragma once

#include <QWidget>
#include <optional>

#include "studio/caller/kept_choices.h"

/// Dialogs over a window about the user's presets. Neither writes the file of choices.

/// Asks for a name for these entries and says when it replaces a preset. Returns nothing when the
/// user cancelled.
std::optional<QString> AskForPresetName(QWidget& window, const KeptChoices::Presets& presets,
                                        const DialogEntries& entries);

/// New names of presets by their former names; an empty name deletes the preset.
using PresetChanges = std::map<QString, QString, PresetOrder>;

/// Lets the user rename and delete presets. Returns nothing to change when they cancelled.
PresetChanges AskForPresetChanges(QWidget& window, const KeptChoices::Presets& presets);

void Apply(const PresetChanges& changes, KeptChoices::Presets& presets);
