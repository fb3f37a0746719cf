#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <filesystem>
#include <memory>
#include <string>

#include "platform/nrvui/ui_views.h"

namespace standin {

/// Counts the live objects of a kind: each holds a copy of the kind's token.
using LiveToken = std::shared_ptr<const void>;

inline LiveToken MakeLiveToken() {
  return std::make_shared<char>();
}

/// The number of copies of the token, without this one.
inline long CountLive(const LiveToken& token) {
  return token.use_count() - 1;
}

/// The nodes of a layout: the view, in it the layout node, in that the panels and controls. View
/// and layout node have the size that the file states, by default 0 by 0, until a presenter sets
/// another. Panels and controls have no size.
struct SheetTree {
  boost::intrusive_ptr<nrvui::ui::UI_SubView> view;
  boost::intrusive_ptr<nrvui::ui::UI_Layout> layout;
  boost::intrusive_ptr<nrvui::ui::UI_Node> initialFocus;  // null for none
};

/// Builds the nodes of a layout file. Each node holds a copy of `token` until it is destroyed.
/// Throws nrvcore::FileError, with the line, for the first element, attribute or value that is
/// unknown or malformed.
SheetTree ReadLayout(const std::filesystem::path& file, const LiveToken& token);

/// As ReadLayout, from the content of a file. `file` is for errors only.
SheetTree ParseLayout(std::string text, const std::filesystem::path& file, const LiveToken& token);

}  // namespace standin
