#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/shared_ptr.hpp>
#include <cstdint>

#include "dialog/node_lookup.h"
#include "dialog/vxui_cairn_sheet_interface.h"
#include "platform/nrvcore/geometry.h"
#include "platform/nrvcore/string.h"
#include "platform/nrvui/os_dialog.h"
#include "platform/nrvui/ui_dialog.h"
#include "platform/suites/plugin_message.h"
#include "platform/vxui/dialogs.h"
#include "platform/vxui/host_interfaces.h"

namespace vx {
class UnicodeString;
}

/// A toolkit dialog of class T whose content comes from a layout resource of the plug-in. Without
/// the host's sheet factory, or without the layout, the dialog comes up empty.
///
/// The dialog is a node with the toolkit's reference count and is destroyed with its last
/// reference. Derived dialogs find their controls afresh by ID each time; no pointers are kept.
template <class T>
class VXUIBaseDialog : public T, public VXUICairnSheetInterface {
 public:
  using Node = nrvui::ui::UI_Node;
  using Rect = nrvcore::geom::RectT<float>;
  using Size = nrvcore::geom::PointT<float>;

  /// `resourceID` is the number of the layout. The dialog is placed where the toolkit positions
  /// dialogs (`positionDialog`), otherwise in the middle of the screen (`centerDialog`), or not at
  /// all; with `centerDialog` its window also grows around its middle. `modalContextFlag` goes to
  /// the host's modal context. `themeName` is ASCII and must outlive the dialog; null asks for the
  /// toolkit's default theme. Without `attachSheetView` the layout's view stays outside the dialog,
  /// and its buttons are not bound. `platformWindow`, `styleValue` and `dialogPoint` go to the
  /// toolkit as they are. Throws what host and toolkit throw.
  VXUIBaseDialog(PluginRef pluginRef, const nrvcore::String& nodeID,
                 const nrvcore::UTF16String& title, uint32_t resourceID, bool positionDialog,
                 NSWindow* platformWindow, bool centerDialog, uint32_t styleValue,
                 bool modalContextFlag, const char* themeName, bool attachSheetView,
                 Size dialogPoint);

  /// The window has a new content rectangle: the content follows.
  void UI_ContentRectChanged(const Rect& rect) override;

  /// Runs the dialog inside the host's modal context and returns when it has closed.
  void RunModal() override;

  /// The theme that the sheet factory is asked for. The constructor asks this class, so that an
  /// override does not change the dialog's own theme.
  virtual nrvcore::UTF16String GetThemeName() const;

  /// The layout has a new size: the sheet and the window follow.
  virtual void OnSheetSizeChanged();

  /// The sheet has something to say; nothing is done with it here.
  virtual void OnSheetMessage(const vx::UnicodeString& message);

  /// The first node below the root view, or the root view itself, with that ID; null if none.
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
