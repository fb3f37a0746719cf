#include "dialog/node_lookup.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/nrvui/ui_panel.h"

namespace {

using nrvui::ui::UI_Node;
using nrvui::ui::UI_Panel;
using NodeRef = boost::intrusive_ptr<UI_Node>;

NodeRef Add(const NodeRef& parent, const char* nodeID) {
  const NodeRef node(new UI_Panel);
  node->UI_SetNodeID(nodeID);
  if (parent) parent->ChildPushBack(node);
  return node;
}

TEST(FindNodeByID, FirstMatchInBreadthFirstOrder) {
  const NodeRef root = Add(nullptr, "root");
  const NodeRef left = Add(root, "left");
  const NodeRef right = Add(root, "right");
  const NodeRef deep = Add(left, "deep");
  Add(deep, "right");
  const NodeRef firstTwin = Add(left, "twin");
  Add(right, "twin");
  Add(right, "root");

  EXPECT_EQ(FindNodeByID(root, "root"), root);
  EXPECT_EQ(FindNodeByID(root, "right"), right) << "nearer the root wins";
  EXPECT_EQ(FindNodeByID(root, "twin"), firstTwin) << "then child order";
  EXPECT_EQ(FindNodeByID(root, "deep"), deep);
  for (const char* none : {"Deep", "dee", "deep ", "", "nobody"}) {
    EXPECT_FALSE(FindNodeByID(root, none)) << none;
  }
  root->UI_SetNodeID("h\xC3\xA9");
  EXPECT_EQ(FindNodeByID(root, "h\xC3\xA9"), root);
}

TEST(FindNodeByID, LeavesTheReferencesAsTheyWere) {
  const NodeRef root = Add(nullptr, "root");
  std::vector<NodeRef> nodes = {root};
  for (int i = 1; i < 40; ++i) nodes.push_back(Add(nodes[i / 3], std::to_string(i).c_str()));
  std::vector<int32_t> counts;
  for (const NodeRef& node : nodes) counts.push_back(node->UI_GetReferenceCount());

  {
    const NodeRef found = FindNodeByID(root, "25");
    ASSERT_TRUE(found);
    EXPECT_EQ(found->UI_GetReferenceCount(), counts[25] + 1);
  }
  EXPECT_FALSE(FindNodeByID(root, "none"));
  for (size_t i = 0; i < nodes.size(); ++i) {
    EXPECT_EQ(nodes[i]->UI_GetReferenceCount(), counts[i]);
  }
}

}  // namespace
