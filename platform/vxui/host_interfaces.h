#pragma once

#include <boost/function.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/shared_ptr.hpp>
#include <cstdint>

#include "platform/nrvcore/export.h"
#include "platform/nrvcore/string.h"
#include "platform/nrvui/os_dialog.h"
#include "platform/nrvui/ui_node.h"

struct OpaqueModule;

namespace nrvui::ui {
class OS_View;
}

namespace vx {
class UnicodeString;
}

// The host owns these objects. Plug-ins call the supplier source, the holder and the factory by
// virtual-table slot: the order and number of the slots are fixed, so the destructors are not
// virtual.

/// Provides the drawing supplier. Plug-ins call only the named operation.
class NRV_EXPORT DrawingSupplierSource {
 public:
  virtual void Unused0();
  virtual void Unused1();
  virtual void Unused2();
  virtual const nrvui::drawbot::SupplierInterface* GetDrawingSupplier() = 0;

 protected:
  ~DrawingSupplierSource() = default;
};

/// The property sheet of a built layout. Dialogs share its ownership and call nothing of it.
class NRV_EXPORT VXUICairnSheet {
 public:
  virtual ~VXUICairnSheet();
};

/// A layout that the host has built. If an operation throws, RunMosaicDialog returns kCannot.
class SheetHolder {
 public:
  /// The content of the dialog; null for none.
  virtual boost::intrusive_ptr<nrvui::ui::UI_Node> GetSheetView() = 0;
  /// The node in the view whose size is the content's; with null the dialog keeps the view's
  /// initial size.
  virtual boost::intrusive_ptr<nrvui::ui::UI_Node> GetLayoutNode() = 0;
  /// May be null.
  virtual boost::shared_ptr<VXUICairnSheet> GetSheet() = 0;
  /// May be null; the presenter then chooses the initial focus.
  virtual boost::intrusive_ptr<nrvui::ui::UI_Node> GetInitialFocus() = 0;
  /// Gives the layout the size of its dialog, in whole points, 0 to 1,000,000.
  virtual void ResizeSheet(std::int32_t width, std::int32_t height) = 0;
  /// Sets the function that receives the sheet's messages, on the user-interface thread; null
  /// removes it. The dialog never removes it, so the holder must not call it after the dialog's
  /// destruction.
  virtual void SetMessageCallback(
      boost::shared_ptr<boost::function<void(const vx::UnicodeString&)>> callback) = 0;

 protected:
  ~SheetHolder() = default;
};

/// Builds layouts. Plug-ins call only the two named operations.
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
  /// Called with the root view of every dialog that has been set up; the dialog owns it.
  virtual void RegisterDialogView(nrvui::ui::OS_View* rootView) = 0;

 protected:
  ~SheetFactory() = default;
};
