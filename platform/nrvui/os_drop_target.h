#pragma once

#include "platform/nrvcore/export.h"

namespace nrvui::datatransfer {

/// Where something dragged could be dropped. It accepts nothing unless it is handed to a view.
class NRV_EXPORT OS_DropTarget {
 public:
  OS_DropTarget();
  OS_DropTarget(const OS_DropTarget&) = delete;
  OS_DropTarget& operator=(const OS_DropTarget&) = delete;
  virtual ~OS_DropTarget();
};

}  // namespace nrvui::datatransfer
