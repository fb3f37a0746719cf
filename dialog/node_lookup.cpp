#include "dialog/node_lookup.h"

#include <span>
#include <utility>
#include <vector>

using nrvui::ui::UI_Node;

namespace {

constexpr size_t kUsualNodes = 64;  // a search among so many that hold others allocates once

}  // namespace

boost::intrusive_ptr<UI_Node> FindNodeByID(const boost::intrusive_ptr<UI_Node>& root,
                                           const nrvcore::String& nodeID) {
  // Nodes whose children come next; entries before `front` are null. A node is compared when its
  // parent's turn comes, which is the same order, so that no reference is counted for one without
  // children.
  std::vector<boost::intrusive_ptr<UI_Node>> queue;
  queue.reserve(kUsualNodes);
  if (root->UI_GetNodeID() == nodeID) return root;
  queue.push_back(root);
  for (size_t front = 0; front < queue.size(); ++front) {
    const boost::intrusive_ptr<UI_Node> parent = std::move(queue[front]);
    for (const auto& node : std::span(parent->ChildBegin(), parent->ChildEnd())) {
      if (node->UI_GetNodeID() == nodeID) return node;
      if (node->ChildBegin() != node->ChildEnd()) queue.push_back(node);
    }
  }
  return nullptr;
}
