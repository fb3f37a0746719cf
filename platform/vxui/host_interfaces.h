#pragma once

#include <boost/function.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/shared_ptr.hpp>
#include <cstdint>

#include "platform/nrvcore/string.h"
#include "platform/nrvui/ui_dialog.h"
#include "platform/nrvui/ui_node.h"

struct OpaqueModule;

namespace nrvui::ui {
class OS_View;
}

namespace vx {
class UnicodeString;
}

// The host implements these classes and owns their objects. Plug-ins call them on the
// user-interface thread, by slot of the virtual table. The order and number of the slots are fixed,
// so only VXUICairnSheet has a virtual destructor. An exception of an operation ends the plug-in's
// dialog: RunMosaicDialog returns kCannot.

/// Provides the drawing supplier. Plug-ins call only the named operation.
class DrawingSupplierSource {
 public:
  virtual void Unused0() {}
  virtual void Unused1() {}
  virtual void Unused2() {}
  /// The host's drawing functions, which outlive all dialogs; may be null.
  virtual const nrvui::drawbot::SupplierInterface* GetDrawingSupplier() = 0;

 protected:
  ~DrawingSupplierSource() = default;
};

/// The property sheet of a layout. Dialogs share its ownership and call none of its operations.
class VXUICairnSheet {
 public:
  virtual ~VXUICairnSheet() = default;
};

/// A layout that the host has built for one dialog. The dialog shares its ownership.
class SheetHolder {
 public:
  /// The dialog's content, a nrvui::ui::UI_SubView; null for none.
  virtual boost::intrusive_ptr<nrvui::ui::UI_Node> GetSheetView() = 0;
  /// The node in the view whose size is the content's. If it is null, the dialog keeps the view's
  /// initial size.
  virtual boost::intrusive_ptr<nrvui::ui::UI_Node> GetLayoutNode() = 0;
  /// May be null.
  virtual boost::shared_ptr<VXUICairnSheet> GetSheet() = 0;
  /// May be null; the presenter then chooses the initial focus.
  virtual boost::intrusive_ptr<nrvui::ui::UI_Node> GetInitialFocus() = 0;
  /// Gives the layout the size of its dialog, in whole points, 0 to 1,000,000.
  virtual void ResizeSheet(std::int32_t width, std::int32_t height) = 0;
  /// Sets the function that receives the sheet's messages; null removes it. The dialog never
  /// removes it, so the holder must not call it after the dialog's destruction.
  virtual void SetMessageCallback(
      boost::shared_ptr<boost::function<void(const vx::UnicodeString&)>> callback) = 0;

 protected:
  ~SheetHolder() = default;
};

/// Builds layouts. Plug-ins call only the two named operations.
class SheetFactory {
 public:
  /// Builds layout `resourceID` of the plug-in in the named theme. Null if the host cannot.
  virtual boost::shared_ptr<SheetHolder> CreateSheetHolder(OpaqueModule* pluginRef,
                                                           std::uint32_t resourceID,
                                                           const nrvcore::UTF16String& theme) = 0;
  virtual void Unused1() {}
  virtual void Unused2() {}
  virtual void Unused3() {}
  virtual void Unused4() {}
  virtual void Unused5() {}
  /// Called with the root view of each dialog after its set-up. The dialog owns the view.
  virtual void RegisterDialogView(nrvui::ui::OS_View* rootView) = 0;

 protected:
  ~SheetFactory() = default;
};
