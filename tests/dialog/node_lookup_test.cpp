#include "dialog/node_lookup.h"

#include <gtest/gtest.h>

#include "check/toolkit_memory.h"
#include "platform/nrvui/ui_views.h"

namespace {

using nrvui::ui::UI_Node;
using nrvui::ui::UI_Panel;
using NodeRef = boost::intrusive_ptr<UI_Node>;

NodeRef Add(const NodeRef& parent, const char* nodeID) {
  NodeRef node(new UI_Panel);
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
  for (const char* none : {"Deep", "dee", "deep ", "", "nobody"})
    EXPECT_FALSE(FindNodeByID(root, none)) << none;
  root->UI_SetNodeID("h\xC3\xA9");
  EXPECT_EQ(FindNodeByID(root, "h\xC3\xA9"), root);
}

TEST(FindNodeByID, TakesMemoryOnceForADialogOfUsualSize) {
  for (const auto& [parents, expected] : {std::pair(64, 1u), {65, 2u}}) {
    const NodeRef root = Add(nullptr, "root");
    for (int i = 1; i < parents; ++i) Add(Add(root, "child"), "grandchild");
    constexpr size_t kMany = 100;
    toolkit_memory::untilRefusal = kMany;
    toolkit_memory::isArmed = true;
    EXPECT_FALSE(FindNodeByID(root, "nobody"));
    toolkit_memory::isArmed = false;
    EXPECT_EQ(kMany - toolkit_memory::untilRefusal, expected) << parents;
  }
}

}  // namespace
