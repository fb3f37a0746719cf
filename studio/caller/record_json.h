#pragma once

#include <QByteArray>

#include "studio/mosaic/mosaic_choices.h"

enum class Fields { kAll, kChoices };  // the latter is what the next run takes up

/// Both as one JSON object, a field a line, by the names and in the order that they have in memory.
QByteArray ToJson(const MosaicChoices& record, Fields fields);

/// The reverse. Fields that aren't choices stay 0, whatever the text says of them. Throws
/// StudioError, with the reason alone, when a choice is missing or has a value that it can't have.
MosaicChoices ChoicesFromJson(const QByteArray& json);
