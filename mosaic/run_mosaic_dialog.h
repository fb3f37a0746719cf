#pragma once

#include "mosaic/mosaic_suite.h"

/// The function of the exported suite; see MosaicSuite::RunMosaicDialog.
ResultCode RunMosaicDialog(MosaicDialogState* state, MosaicParameters** params);
