#include "dialog/node_lookup.h"

#include <utility>
#include <vector>

using nrvui::ui::UI_Node;

namespace {

constexpr size_t kUsualNodes = 64;  // a dialog of up to so many is searched with one allocation

}  // namespace

boost::intrusive_ptr<UI_Node> FindNodeByID(const boost::intrusive_ptr<UI_Node>& root,
                                           const nrvcore::String& nodeID) {
  std::vector<boost::intrusive_ptr<UI_Node>> queue;  // entries before `front` are null
  queue.reserve(kUsualNodes);
  queue.push_back(root);
  for (size_t front = 0; front < queue.size(); ++front) {
    boost::intrusive_ptr<UI_Node> node = std::move(queue[front]);
    if (node->UI_GetNodeID() == nodeID) return node;
    queue.insert(queue.end(), node->ChildBegin(), node->ChildEnd());
  }
  return nullptr;
}
