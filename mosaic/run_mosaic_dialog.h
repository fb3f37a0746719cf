#pragma once

#include "mosaic/mosaic_suite.h"

/// The function of the exported suite, see MosaicSuite::RunMosaicDialog. No exception leaves it.
/// Without a running plug-in, or with a null argument, it answers kCannot and touches nothing.
ResultCode RunMosaicDialog(MosaicDialogState* state, MosaicParameters** params);
