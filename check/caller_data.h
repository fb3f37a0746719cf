#pragma once

#include <string>

#include "mosaic/mosaic_suite.h"

namespace check {

/// What a caller of the dialog owns.
struct CallerData {
  MosaicParameters record;
  MosaicDialogState state;
};

/// All fields and their values on one line.
std::string Text(const CallerData& data);

/// A finding for each field that differs, byte for byte.
void ExpectFields(const CallerData& seen, const CallerData& expected);

}  // namespace check
