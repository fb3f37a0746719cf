#pragma once

#include <boost/function.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/shared_ptr.hpp>
#include <cstdint>

#include "platform/nrvui/ui_node.h"
#include "platform/vxui/vxui_cairn_sheet.h"

namespace vx {
class UnicodeString;
}

/// A layout that the host has built. It goes by position: the order of its operations is fixed,
/// and the destructor must not take a place among them.
class SheetHolder {
 public:
  /// What goes into the dialog; null when there is nothing to show.
  virtual boost::intrusive_ptr<nrvui::ui::UI_Node> GetSheetView() = 0;
  /// The node inside the view whose size is that of the content.
  virtual boost::intrusive_ptr<nrvui::ui::UI_Node> GetLayoutNode() = 0;
  virtual boost::shared_ptr<VXUICairnSheet> GetSheet() = 0;
  virtual boost::intrusive_ptr<nrvui::ui::UI_Node> GetInitialFocus() = 0;
  /// Tells the layout how much room its dialog has, in points.
  virtual void ResizeSheet(std::int32_t width, std::int32_t height) = 0;
  /// The holder calls it, on the thread of the interface, with what the sheet has to say; null
  /// takes it away.
  virtual void SetMessageCallback(
      boost::shared_ptr<boost::function<void(const vx::UnicodeString&)>> callback) = 0;

 protected:
  ~SheetHolder() = default;
};
