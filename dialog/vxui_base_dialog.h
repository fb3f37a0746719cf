#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/shared_ptr.hpp>
#include <cstdint>

#include "dialog/node_lookup.h"
#include "dialog/vxui_cairn_sheet_interface.h"
#include "platform/nrvcore/geometry.h"
#include "platform/nrvcore/string.h"
#include "platform/nrvui/ui_dialog.h"
#include "platform/suites/plugin_message.h"
#include "platform/vxui/dialogs.h"
#include "platform/vxui/host_interfaces.h"

namespace vx {
class UnicodeString;
}

/// A toolkit dialog of class T whose content comes from a layout resource of the plug-in. If the
/// host has no sheet factory, or the layout cannot be built, the dialog is empty. Main thread only.
///
/// The dialog is a node with the toolkit's reference count; releasing the last reference destroys
/// it. Derived dialogs look their controls up by ID for each use and keep no pointers to them.
template <class T>
class VXUIBaseDialog : public T, public VXUICairnSheetInterface {
 public:
  using Node = nrvui::ui::UI_Node;
  using Rect = nrvcore::geom::RectT<float>;
  using Size = nrvcore::geom::PointT<float>;

  /// `resourceID` is the number of the layout. With `positionDialog` the toolkit chooses the
  /// dialog's position; otherwise `centerDialog` puts it in the middle of the screen; with neither
  /// it stays at `dialogPoint`. With `centerDialog` the window also keeps its centre when it is
  /// resized. `modalContextFlag` is the argument of the host's modal context. `themeName` is ASCII
  /// and must outlive the dialog; null means the toolkit's default theme. Without `attachSheetView`
  /// the layout's view is not added to the dialog, and its buttons are not bound. `platformWindow`,
  /// `styleValue` and `dialogPoint` are passed to the toolkit. Throws what host and toolkit throw.
  VXUIBaseDialog(PluginRef pluginRef, const nrvcore::String& nodeID,
                 const nrvcore::UTF16String& title, uint32_t resourceID, bool positionDialog,
                 NSWindow* platformWindow, bool centerDialog, uint32_t styleValue,
                 bool modalContextFlag, const char* themeName, bool attachSheetView,
                 Size dialogPoint);

  /// Called after the window's content rectangle has changed; resizes the root view and the sheet.
  void UI_ContentRectChanged(const Rect& rect) override;

  /// Runs the dialog inside the host's modal context and returns when it has closed.
  void RunModal() override;

  /// The theme in which the layout is built. The constructor calls this class's version, so an
  /// override does not change the theme of its own dialog.
  virtual nrvcore::UTF16String GetThemeName() const;

  /// Called after the layout's size has changed; resizes the sheet view and the window.
  virtual void OnSheetSizeChanged();

  /// Called with each message of the sheet; does nothing.
  virtual void OnSheetMessage(const vx::UnicodeString& message);

  /// The first node with that ID, breadth first from the root view; null if there is none.
  boost::intrusive_ptr<Node> FindNodeByID(const nrvcore::String& nodeID) const;

 private:
  void SetUpSheet(const nrvcore::String& nodeID, uint32_t resourceID, bool positionDialog,
                  bool centerDialog, bool attachSheetView);
  void SetUpLayout(const boost::intrusive_ptr<Node>& sheetView, bool attachSheetView);
  void SetUpMnemonics(Node& sheetView);
  void BindButtons();
  void Place(bool positionDialog, bool centerDialog);
  void SetSize(Size size);
  Size ContentSizeFor(const Rect& rect) const;
  boost::shared_ptr<VXUICairnSheet> AcquireSheet() const;

  PluginRef pluginRef;
  boost::shared_ptr<SheetHolder> sheetHolder;  // null when the host gave none
  Size minimumContentSize = {0.0f, 0.0f};
  nrvui::datatransfer::OS_DropTarget dropTarget;
  bool modalContextFlag;
  const char* themeName;
};

extern template class VXUIBaseDialog<nrvui::ui::UI_Dialog>;
extern template class VXUIBaseDialog<vx::ui::UI_PopupModalDialog>;
extern template class VXUIBaseDialog<vx::ui::UI_FloatingDialog>;
