#pragma once

#include <boost/smart_ptr/shared_ptr.hpp>

#include "platform/vxui/host_interfaces.h"

/// Owns a share of a dialog's property sheet, so that the sheet lives as long as the dialog, even
/// if the sheet holder has released it.
class VXUICairnSheetInterface {
 public:
  VXUICairnSheetInterface() = default;
  // A dialog is also a node, and a node's destructor may throw.
  virtual ~VXUICairnSheetInterface() noexcept(false) = default;
  VXUICairnSheetInterface(const VXUICairnSheetInterface&) = delete;
  VXUICairnSheetInterface& operator=(const VXUICairnSheetInterface&) = delete;

 protected:
  boost::shared_ptr<VXUICairnSheet> sheet;
};
