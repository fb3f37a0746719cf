#pragma once

#include <QByteArray>

#include "studio/mosaic/mosaic_choices.h"

/// Both as one JSON object, a field a line, by the names and in the order that they have in memory.
QByteArray RecordToJson(const MosaicChoices& record);

/// Only what the next run takes up: counts, flags and the state.
QByteArray ChoicesToJson(const MosaicChoices& choices);

/// The reverse. Fields that aren't choices stay 0, whatever the text says of them. Throws
/// StudioError, with the reason alone, when a choice is missing or has a value that it can't have.
MosaicChoices ChoicesFromJson(const QByteArray& json);
