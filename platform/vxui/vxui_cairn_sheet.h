#pragma once

#include "platform/nrvcore/export.h"

/// The property sheet that comes with a built layout. Dialogs only share its ownership.
class NRV_EXPORT VXUICairnSheet {
 public:
  virtual ~VXUICairnSheet();
};
