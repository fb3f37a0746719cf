#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <filesystem>
#include <string>

#include "platform/nrvui/ui_views.h"
#include "platform/standin/live_token.h"

namespace standin {

/// A layout as nodes: the view that goes into a dialog, in it the layout node, in that the panels
/// and controls. View and layout node have the size that the file gives, 0 by 0 without one, until
/// a presenter that knows its fonts sets another; what is in them has none.
struct SheetTree {
  boost::intrusive_ptr<nrvui::ui::UI_SubView> view;
  boost::intrusive_ptr<nrvui::ui::UI_Layout> layout;
  boost::intrusive_ptr<nrvui::ui::UI_Node> initialFocus;  // null when the layout names none
};

/// Makes the nodes that a layout file describes; layout_elements.cpp lists the elements and their
/// attributes. Every node holds a copy of `token`. Throws ResourceError, with the line, for
/// whatever it does not know or cannot use; no node remains then.
SheetTree ReadLayout(const std::filesystem::path& file, const LiveToken& token);

/// The same for the text of a file.
SheetTree ParseLayout(std::string text, const std::filesystem::path& file, const LiveToken& token);

}  // namespace standin
