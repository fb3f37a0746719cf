#include "dialog/node_lookup.h"

#include <gtest/gtest.h>

#include <new>

#include "platform/nrvui/ui_views.h"
#include "testkit/toolkit_memory.h"

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

TEST(FindNodeByID, FindsTheFirstMatchInBreadthFirstOrder) {
  const NodeRef root = Add(nullptr, "root");
  const NodeRef left = Add(root, "left");
  const NodeRef right = Add(root, "right");
  const NodeRef deep = Add(left, "deep");
  Add(deep, "right");
  const NodeRef firstTwin = Add(left, "twin");
  Add(right, "twin");
  Add(right, "root");

  EXPECT_EQ(FindNodeByID(*root, "root"), root);
  EXPECT_EQ(FindNodeByID(*root, "right"), right) << "nearer the root wins";
  EXPECT_EQ(FindNodeByID(*root, "twin"), firstTwin) << "then child order";
  EXPECT_EQ(FindNodeByID(*root, "deep"), deep);
  for (const char* none : {"Deep", "dee", "deep ", "", "nobody"})
    EXPECT_FALSE(FindNodeByID(*root, none)) << none;
  root->UI_SetNodeID("h\xC3\xA9");
  EXPECT_EQ(FindNodeByID(*root, "h\xC3\xA9"), root);
}

TEST(FindNodeByID, ReleasesEveryReferenceAlsoIfMemoryRunsOut) {
  constexpr size_t kLeaves = 1000;
  const NodeRef root = Add(nullptr, "root");
  for (size_t i = 0; i < kLeaves; ++i) Add(root, i + 1 < kLeaves ? "leaf" : "last");
  const NodeRef last = root->ChildEnd()[-1];
  size_t refusals = 0;
  for (bool found = false; !found; refusals += !found) {
    toolkit_memory::untilRefusal = refusals + 1;
    toolkit_memory::isArmed = true;
    try {
      const NodeRef node = FindNodeByID(*root, "last");
      toolkit_memory::isArmed = false;
      found = node == last;
      EXPECT_EQ(last->UI_GetReferenceCount(), 3);
    } catch (const std::bad_alloc&) {
    }
    toolkit_memory::isArmed = false;
    for (const NodeRef& node : nrvui::ui::Children(*root))
      ASSERT_EQ(node->UI_GetReferenceCount(), node == last ? 2 : 1) << refusals;
    ASSERT_EQ(root->UI_GetReferenceCount(), 1) << refusals;
  }
  EXPECT_GT(refusals, kLeaves / 100) << "every node needs a queue entry";
}

}  // namespace
