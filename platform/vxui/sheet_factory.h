#pragma once

#include <boost/smart_ptr/shared_ptr.hpp>
#include <cstdint>

#include "platform/nrvcore/string.h"
#include "platform/vxui/sheet_holder.h"

struct OpaqueModule;

namespace nrvui::ui {
class OS_View;
}

/// Builds layouts. The object belongs to the host and goes by position; the operations between
/// the two that have names are the host's own.
class NRV_EXPORT SheetFactory {
 public:
  /// Builds layout `resourceID` of a plug-in in a theme; null if the host cannot.
  virtual boost::shared_ptr<SheetHolder> CreateSheetHolder(OpaqueModule* pluginRef,
                                                           std::uint32_t resourceID,
                                                           const nrvcore::UTF16String& theme) = 0;
  virtual void Unused1();
  virtual void Unused2();
  virtual void Unused3();
  virtual void Unused4();
  virtual void Unused5();
  /// Told the root view of every dialog that has been set up.
  virtual void RegisterDialogView(nrvui::ui::OS_View* rootView) = 0;

 protected:
  ~SheetFactory() = default;
};
