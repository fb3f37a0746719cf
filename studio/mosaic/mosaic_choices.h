#pragma once

#include "mosaic/mosaic_suite.h"

/// What a run of the dialog leaves behind for the next one.
struct MosaicChoices {
  MosaicParameters params{};
  MosaicDialogState state{};
};
