#pragma once

#include "platform/qt/message_line.h"
#include "studio/mosaic/mosaic_choices.h"
#include "studio/picture/picture.h"

/// What choices lead to, in a sentence; a warning says why there will be no mosaic.
qtui::ReadOut OutlookFor(const Picture& picture, const MosaicChoices& choices);
