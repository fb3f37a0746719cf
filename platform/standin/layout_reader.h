#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <filesystem>
#include <string>

#include "platform/nrvui/ui_views.h"
#include "platform/standin/live_token.h"

namespace standin {

/// A layout as nodes: the view, in it the layout node, in that the panels and controls. View and
/// layout node have the size from the file, by default 0 by 0, until a presenter that knows its
/// fonts sets another. Panels and controls have no size.
struct SheetTree {
  boost::intrusive_ptr<nrvui::ui::UI_SubView> view;
  boost::intrusive_ptr<nrvui::ui::UI_Layout> layout;
  boost::intrusive_ptr<nrvui::ui::UI_Node> initialFocus;  // null for none
};

/// Builds the nodes of a layout file; layout_elements.cpp lists the elements and their attributes.
/// Every node holds a copy of `token`. Throws nrvcore::FileError, with the line, for the first
/// element, attribute or value that is unknown or invalid; then no node remains.
SheetTree ReadLayout(const std::filesystem::path& file, const LiveToken& token);

/// The same for the text of a file.
SheetTree ParseLayout(std::string text, const std::filesystem::path& file, const LiveToken& token);

}  // namespace standin
