#include "dialog/node_lookup.h"

#include <deque>
#include <utility>

using nrvui::ui::UI_Node;

boost::intrusive_ptr<UI_Node> FindNodeByID(const boost::intrusive_ptr<UI_Node>& root,
                                           const nrvcore::String& nodeID) {
  std::deque<boost::intrusive_ptr<UI_Node>> queue = {root};
  while (!queue.empty()) {
    boost::intrusive_ptr<UI_Node> node = std::move(queue.front());
    queue.pop_front();
    if (node->UI_GetNodeID() == nodeID) return node;
    queue.insert(queue.end(), node->ChildBegin(), node->ChildEnd());
  }
  return nullptr;
}
