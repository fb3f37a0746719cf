#include "dialog/node_lookup.h"

#include <queue>

using nrvui::ui::UI_Node;

boost::intrusive_ptr<UI_Node> FindNodeByID(UI_Node& root, const nrvcore::String& nodeID) {
  std::queue<boost::intrusive_ptr<UI_Node>> queue;
  queue.emplace(&root);
  while (!queue.empty()) {
    boost::intrusive_ptr<UI_Node> node = queue.front();
    if (node->UI_GetNodeID() == nodeID) return node;
    queue.pop();
    for (const auto& child : Children(*node)) queue.push(child);
  }
  return nullptr;
}
