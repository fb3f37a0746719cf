#pragma once

#include <string>

#include "mosaic/mosaic_suite.h"
#include "testkit/hosted_module.h"

namespace check {

/// What a caller of the dialog owns and passes to RunMosaicDialog.
struct CallerData {
  MosaicParameters record = SampleRecord();
  MosaicDialogState state{};
};

/// All fields and their values on one line.
std::string Text(const CallerData& data);

/// Reports a finding for each field that differs, byte for byte.
void ExpectFields(const CallerData& seen, const CallerData& expected);

}  // namespace check
