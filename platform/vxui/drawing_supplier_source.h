#pragma once

#include "platform/nrvui/supplier_interface.h"

/// Hands out what dialogs draw with. The object belongs to the host and goes by position.
class NRV_EXPORT DrawingSupplierSource {
 public:
  virtual void Unused0();
  virtual void Unused1();
  virtual void Unused2();
  virtual const nrvui::drawbot::SupplierInterface* GetDrawingSupplier() = 0;

 protected:
  ~DrawingSupplierSource() = default;
};
