#pragma once

#include <boost/smart_ptr/shared_ptr.hpp>

#include "platform/vxui/host_interfaces.h"

/// Keeps a dialog's property sheet alive for as long as the dialog, even when the holder of its
/// layout has let go of it.
class VXUICairnSheetInterface {
 public:
  VXUICairnSheetInterface() = default;
  // A dialog is a node as well, and the destruction of a node may throw.
  virtual ~VXUICairnSheetInterface() noexcept(false) = default;
  VXUICairnSheetInterface(const VXUICairnSheetInterface&) = delete;
  VXUICairnSheetInterface& operator=(const VXUICairnSheetInterface&) = delete;

 protected:
  boost::shared_ptr<VXUICairnSheet> sheet;
};
