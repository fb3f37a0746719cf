#include "platform/nrvui/os_drop_target.h"
#include "platform/nrvui/supplier_interface.h"

namespace nrvui {

drawbot::SupplierInterface::~SupplierInterface() = default;

datatransfer::OS_DropTarget::OS_DropTarget() = default;
datatransfer::OS_DropTarget::~OS_DropTarget() = default;

}  // namespace nrvui
