#pragma once

#include <QString>

#include "studio/mosaic/mosaic_choices.h"
#include "studio/picture/picture.h"

/// What choices lead to, in a sentence.
struct Outlook {
  QString text;
  bool isMosaic;  // or else why there will be none
};

Outlook OutlookFor(const Picture& picture, const MosaicChoices& choices);
