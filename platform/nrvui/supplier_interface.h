#pragma once

#include "platform/nrvcore/export.h"

namespace nrvui::drawbot {

/// With which dialogs draw. The toolkit only hands it on.
class NRV_EXPORT SupplierInterface {
 public:
  virtual ~SupplierInterface();
};

}  // namespace nrvui::drawbot
