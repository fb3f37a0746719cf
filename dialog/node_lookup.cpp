#include "dialog/node_lookup.h"

#include <deque>

using nrvui::ui::UI_Node;

boost::intrusive_ptr<UI_Node> FindNodeByID(const boost::intrusive_ptr<UI_Node>& root,
                                           const nrvcore::String& nodeID) {
  std::deque<boost::intrusive_ptr<UI_Node>> queue = {root};
  while (!queue.empty()) {
    const boost::intrusive_ptr<UI_Node> node = queue.front();
    if (node->UI_GetNodeID() == nodeID) return node;
    queue.pop_front();
    queue.insert(queue.end(), node->ChildBegin(), node->ChildEnd());
  }
  return nullptr;
}
