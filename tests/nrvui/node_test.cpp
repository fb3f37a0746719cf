#include <gtest/gtest.h>

#include <boost/smart_ptr/make_shared.hpp>
#include <stdexcept>
#include <string>

#include "platform/nrvcore/error.h"
#include "platform/nrvui/ui_controls.h"
#include "platform/nrvui/ui_node.h"
#include "tests/nrvui/test_dialog.h"

using namespace nrvui::controls;
using namespace nrvui::ui;
using NodePtr = boost::intrusive_ptr<UI_Node>;

namespace {

struct Counted : UI_Node {
  explicit Counted(int& destructions) : destroyed(destructions) {}
  ~Counted() override {
    const NodePtr lateReference = this;  // must not destroy it a second time
    ++destroyed;
  }

  int& destroyed;
};

std::string ChildIDs(const UI_Node& node) {
  std::string ids;
  for (const auto& child : Children(node)) ids += child->UI_GetNodeID().View();
  return ids;
}

}  // namespace

TEST(Node, LastReleaseDestroysItOnceUnlessItIsKept) {
  int destroyed = 0;
  NodePtr node = new Counted(destroyed);
  NodePtr parent = new UI_Node;
  parent->ChildPushBack(node);
  node.reset();
  EXPECT_EQ(destroyed, 0);
  parent.reset();
  EXPECT_EQ(destroyed, 1);
  {
    Counted onStack(destroyed);
    onStack.UI_KeepOnLastRelease(true);
    NodePtr(&onStack).reset();
    EXPECT_EQ(destroyed, 1);
  }
  EXPECT_EQ(destroyed, 2);
}

TEST(Node, ChildHasOneParentAndItsPlaceInTheOrder) {
  NodePtr parent = new UI_Node, other = new UI_Node, a = new UI_Node, b = new UI_Node;
  a->UI_SetNodeID("a");
  b->UI_SetNodeID("b");
  EXPECT_THROW(a->UI_GetIndex(), std::logic_error);
  parent->ChildPushBack(a);
  parent->ChildPushBack(b);
  parent->ChildSwapOrder(0, 1);
  EXPECT_EQ(ChildIDs(*parent), "ba");
  EXPECT_EQ(a->UI_GetIndex(), 1u);
  parent->ChildPushBack(b);
  EXPECT_EQ(ChildIDs(*parent), "ab") << "a child pushed again moves to the end";
  EXPECT_THROW(parent->ChildSwapOrder(0, 2), std::out_of_range);

  other->ChildPushBack(b);
  EXPECT_EQ(ChildIDs(*parent) + "|" + ChildIDs(*other), "a|b");
  EXPECT_EQ(b->UI_GetParentContainer(), other.get());
  EXPECT_EQ(b->UI_GetReferenceCount(), 2);

  parent->ChildPushBack(other);
  EXPECT_THROW(b->ChildPushBack(parent), std::invalid_argument) << "no cycles";
  EXPECT_THROW(b->ChildPushBack(nullptr), std::invalid_argument);
  other.reset();
  parent.reset();
  EXPECT_EQ(b->UI_GetParentContainer(), nullptr) << "the parent is gone";
}

TEST(Node, SizeNotificationComesOnlyIfTheSizeChanges) {
  const NodePtr node = new UI_Node;
  int notified = 0;
  node->UI_InstallSizeChangedNotifyFunction(
      boost::make_shared<boost::function<void()>>([&] { ++notified; }));
  node->UI_SetLocalRectF({5, 5, 35, 25});
  node->UI_SetLocalRectF({0, 0, 30, 20});
  EXPECT_EQ(notified, 1);
  EXPECT_EQ(node->UI_GetLocalRectF(), (nrvcore::geom::RectT<float>{0, 0, 30, 20}));
  node->UI_SetLocalRectF({9, 9, 5, 5});
  EXPECT_EQ(node->UI_GetLocalRectF(), (nrvcore::geom::RectT<float>{0, 0, 0, 0}));
}

TEST(Node, DisabledStateChangedIsCalledOnlyIfTheStateChanges) {
  struct Recorder : UI_Checkbox {
    void UI_DisabledStateChanged(bool disabled) override { states += disabled ? 'd' : 'e'; }
    std::string states;
  };
  const boost::intrusive_ptr<Recorder> node = new Recorder;
  for (const bool disable : {false, true, true, false}) node->SetDisabled(disable);
  EXPECT_EQ(node->states, "de");
}

TEST(Node, ObserverIsNotifiedOnceForEachChange) {
  struct Counter final : NodeObserver {
    void NodeChanged(UI_Node&) override { ++changes; }
    int changes = 0;
  } observer;
  TestDialog test;
  const boost::intrusive_ptr<UI_Panel> grid = new UI_Panel;
  test.dialog->GetRootView()->ChildPushBack(grid);
  ForEachBelow<UI_Node>(*test.dialog, [&](UI_Node& node) { node.UI_SetObserver(&observer); });
  test.dialog->UI_SetObserver(&observer);
  const std::function<void()> steps[] = {[&] { test.ok->SetHelp("$$$/a=b"); },
                                         [&] { test.ok->SetDisabledHelp("$$$/a=b"); },
                                         [&] { test.label->SetBuddy("ok"); },
                                         [&] { test.gray->SetGroup("a"); },
                                         [&] { grid->SetArrangement(PanelArrangement::kGrid); },
                                         [&] { grid->SetColumnCount(1); },
                                         [&] { grid->SetColumnCount(grid->kMaxColumns); },
                                         [&] { grid->SetTitle(u"Grid"); },
                                         [&] { test.dialog->Center(); },
                                         [&] { test.dialog->SetMinimumSize({}); },
                                         [&] { test.panel->ChildPushBack(test.ok); }};
  for (size_t i = 0; i < std::size(steps); ++i) {
    const int before = observer.changes;
    steps[i]();
    EXPECT_EQ(observer.changes, before + 1) << i;
  }
  const int before = observer.changes;
  test.ok->SetDisabled(false);
  test.ok->ShowMnemonic(false);
  test.ok->UI_Show(true);
  EXPECT_EQ(observer.changes, before) << "nothing changed";
  grid->ChildPushBack(test.ok);
  EXPECT_EQ(observer.changes, before + 2) << "both parents";
  for (const unsigned wrong : {0u, grid->kMaxColumns + 1})
    EXPECT_THROW(grid->SetColumnCount(wrong), std::invalid_argument);
}

TEST(MessageFunctionAdapter, ThrowsForAMessageOfAnotherClass) {
  using Adapter = MessageFunctionAdapter<MessageT<UI_Node>, UI_ControlChangedMessage>;
  int delivered = 0;
  const Adapter adapter([&](UI_ControlChangedMessage*) { ++delivered; });
  UI_ControlChangedMessage changed;
  adapter(&changed);
  EXPECT_EQ(delivered, 1);

  MessageT<UI_Node> generic;
  for (MessageT<UI_Node>* message : {&generic, static_cast<MessageT<UI_Node>*>(nullptr)}) {
    try {
      adapter(message);
      ADD_FAILURE() << "no error";
    } catch (const nrvcore::config::Error& error) {
      EXPECT_STREQ(error.what(),
                   "$$$/nrvcore/utility/Error/InvalidTypeConversion=Invalid type conversion.");
      EXPECT_EQ(error.Level(), nrvcore::config::ErrorLevel::kError);
      EXPECT_EQ(error.Number(), 105u);
      EXPECT_EQ(error.Code(), 21);
      EXPECT_TRUE(error.Flag());
    }
  }
}
