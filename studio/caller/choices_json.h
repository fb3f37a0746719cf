#pragma once

#include <QByteArray>
#include <string>

#include "studio/caller/kept_choices.h"

/// JSON of the record and of the file of choices.

/// An object with one line for each field, with the fields' names and order in memory. NaN and
/// infinity become null.
QByteArray RecordJson(const MosaicChoices& record);

/// The content of a file of choices.
QByteArray ToJson(const KeptChoices& kept);

/// Reads such a content. A file of version 1.0 is an object with the fields of `last` alone.
/// Unknown fields are ignored. Throws StudioError, with the reason alone, when the text is not
/// JSON, or a field is missing or has a value outside its range.
KeptChoices KeptChoicesFromJson(const std::string& json);
