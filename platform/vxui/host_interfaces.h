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

// The host owns these objects. Plug-ins reach the operations of the supplier source, the holder and
// the factory by their slots in the virtual table: order and number of the slots are fixed, and no
// destructor takes one among them.

/// Hands out what dialogs draw with. Plug-ins call only the operation that has a name.
class NRV_EXPORT DrawingSupplierSource {
 public:
  virtual void Unused0();
  virtual void Unused1();
  virtual void Unused2();
  virtual const nrvui::drawbot::SupplierInterface* GetDrawingSupplier() = 0;

 protected:
  ~DrawingSupplierSource() = default;
};

/// The property sheet that comes with a built layout. Dialogs only share its ownership.
class NRV_EXPORT VXUICairnSheet {
 public:
  virtual ~VXUICairnSheet();
};

/// A layout that the host has built. An operation that throws makes the dialog answer kCannot.
class SheetHolder {
 public:
  /// What goes into the dialog; null when there is nothing to show.
  virtual boost::intrusive_ptr<nrvui::ui::UI_Node> GetSheetView() = 0;
  /// The node inside the view whose size is that of the content; null leaves the dialog
  /// at the size that the view has at first.
  virtual boost::intrusive_ptr<nrvui::ui::UI_Node> GetLayoutNode() = 0;
  /// Null is allowed.
  virtual boost::shared_ptr<VXUICairnSheet> GetSheet() = 0;
  /// Null is allowed; the dialog then begins where its presenter likes.
  virtual boost::intrusive_ptr<nrvui::ui::UI_Node> GetInitialFocus() = 0;
  /// Tells the layout how much room its dialog has, in whole points, 0 to 1,000,000.
  virtual void ResizeSheet(std::int32_t width, std::int32_t height) = 0;
  /// The holder calls it on the user-interface thread with each message of the sheet; null removes
  /// it. The dialog never removes it, so the holder must not call it after the dialog was
  /// destroyed.
  virtual void SetMessageCallback(
      boost::shared_ptr<boost::function<void(const vx::UnicodeString&)>> callback) = 0;

 protected:
  ~SheetHolder() = default;
};

/// Builds layouts. Plug-ins call only the two operations that have names.
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
  /// Told the root view of every dialog that has been set up; it is the dialog's, and goes with it.
  virtual void RegisterDialogView(nrvui::ui::OS_View* rootView) = 0;

 protected:
  ~SheetFactory() = default;
};
