#pragma once

#include "mosaic/mosaic_suite.h"

/// What the dialog "Create Tesserae" takes and returns.
struct MosaicChoices {
  MosaicParameters params{};
  MosaicDialogState state{};
};
