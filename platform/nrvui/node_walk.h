#pragma once

#include "platform/nrvui/ui_node.h"

namespace nrvui::ui {

/// Calls `visit` with every node of a class below `top`, parents before their children.
template <class Node, class Visit>
void ForEachBelow(const UI_Container& top, const Visit& visit) {
  for (const auto& child : Children(top)) {
    if (auto* node = dynamic_cast<Node*>(child.get())) visit(*node);
    ForEachBelow<Node>(*child, visit);
  }
}

}  // namespace nrvui::ui
