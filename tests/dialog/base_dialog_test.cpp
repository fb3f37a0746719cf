#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "dialog/vxui_base_dialog.h"
#include "host/suites.h"
#include "host/unicode_string.h"
#include "platform/nrvui/ui_button.h"
#include "platform/nrvui/ui_checkbox.h"
#include "platform/nrvui/ui_node_manager.h"
#include "platform/nrvui/ui_panel.h"
#include "platform/vxui/drawing_supplier_source.h"
#include "platform/vxui/modal_context.h"
#include "platform/vxui/sheet_factory.h"

namespace {

using nrvcore::geom::PointT;
using nrvcore::geom::RectT;
using nrvui::controls::UI_Button;
using nrvui::ui::DialogPlacement;
using nrvui::ui::UI_Node;
using NodeRef = boost::intrusive_ptr<UI_Node>;
using Point = PointT<float>;

std::vector<std::string> events;  // what happened to the host's objects, in order

class TestSheet : public VXUICairnSheet {
 public:
  ~TestSheet() override { events.push_back("sheet gone"); }
};

class TestHolder final : public SheetHolder {
 public:
  TestHolder() : view(new nrvui::ui::UI_Panel), layout(new nrvui::ui::UI_Panel) {
    view->ChildPushBack(layout);
    view->UI_Show(false);
  }
  ~TestHolder() { events.push_back("holder gone"); }

  NodeRef GetSheetView() override { return view; }
  NodeRef GetLayoutNode() override { return layout; }
  boost::shared_ptr<VXUICairnSheet> GetSheet() override { return sheet; }
  NodeRef GetInitialFocus() override { return focus; }
  void ResizeSheet(int32_t width, int32_t height) override { asked = {width, height}; }
  void SetMessageCallback(
      boost::shared_ptr<boost::function<void(const vx::UnicodeString&)>> function) override {
    callback = function;
  }

  NodeRef Add(const NodeRef& parent, UI_Node* child, const char* nodeID) {
    const NodeRef node(child);
    node->UI_SetNodeID(nodeID);
    parent->ChildPushBack(node);
    return node;
  }

  NodeRef view;
  NodeRef layout;
  NodeRef focus;
  boost::shared_ptr<VXUICairnSheet> sheet{new TestSheet};
  boost::shared_ptr<boost::function<void(const vx::UnicodeString&)>> callback;
  std::pair<int32_t, int32_t> asked{-1, -1};
};

/// The host's half: hands out this test's factory through the basic suite.
class TestHost final : public SheetFactory, public DrawingSupplierSource {
 public:
  TestHost() {
    current = this;
    basicSuite = &basic;
  }
  ~TestHost() { basicSuite = nullptr; }

  boost::shared_ptr<SheetHolder> CreateSheetHolder(OpaqueModule* plugin, uint32_t resourceID,
                                                   const nrvcore::UTF16String& themeName) override {
    requested = {plugin, resourceID};
    theme = themeName;
    return holder;
  }
  const nrvui::drawbot::SupplierInterface* GetDrawingSupplier() override { return &supplier; }
  void RegisterDialogView(nrvui::ui::OS_View* rootView) override { registered = rootView; }

  template <class Object>
  static ResultCode Give(Object** out) {
    if (current->gives) *out = current;
    return ResultCode::kSuccess;
  }

  inline static TestHost* current = nullptr;
  VXUserInterfaceMainSuite main = {&Give<SheetFactory>, &Give<DrawingSupplierSource>};
  QPBasicSuite basic = {
      [](const char* name, int32_t version, const void** suite) {
        if (!current->hasSuite) return ResultCode::kCannot;
        EXPECT_STREQ(name, VXUserInterfaceMainSuite::kName);
        EXPECT_EQ(version, 1001);
        ++current->users;
        *suite = &current->main;
        return ResultCode::kSuccess;
      },
      [](const char*, int32_t) { return --current->users, ResultCode::kSuccess; }};
  int users = 0;
  bool hasSuite = true;
  bool gives = true;
  nrvui::drawbot::SupplierInterface supplier;
  boost::shared_ptr<TestHolder> holder{new TestHolder};
  std::pair<OpaqueModule*, uint32_t> requested;
  nrvcore::UTF16String theme;
  nrvui::ui::OS_View* registered = nullptr;
};

struct Options {
  bool position = true;
  bool center = true;
  bool attach = true;
  const char* theme = nullptr;
};

template <class T>
class TestDialog : public VXUIBaseDialog<T> {
 public:
  explicit TestDialog(const Options& options = {})
      : VXUIBaseDialog<T>(kPlugin, "TestDialog", u"Test", 4711, options.position, nullptr,
                          options.center, 3, true, options.theme, options.attach,
                          Point{70.0f, 80.0f}) {}
  ~TestDialog() override { events.push_back("dialog going"); }

  void OnSheetMessage(const vx::UnicodeString& message) override {
    heard = &message;
    VXUIBaseDialog<T>::OnSheetMessage(message);
  }

  VXUICairnSheet* Sheet() const { return this->sheet.get(); }

  const vx::UnicodeString* heard = nullptr;

  inline static const PluginRef kPlugin = reinterpret_cast<PluginRef>(0x1234);
};

using PlainDialog = TestDialog<nrvui::ui::UI_Dialog>;
using DialogRef = boost::intrusive_ptr<PlainDialog>;

class BaseDialogTest : public testing::Test {
 protected:
  BaseDialogTest() { events.clear(); }

  NodeRef AddButton(const NodeRef& parent, const char* nodeID) {
    return host.holder->Add(parent, new UI_Button, nodeID);
  }

  TestHost host;
};

TEST_F(BaseDialogTest, SetsUpTheLayout) {
  TestHolder& holder = *host.holder;
  const NodeRef ok = AddButton(holder.layout, "okButton");
  const NodeRef cancel = AddButton(holder.layout, "cancelButton");
  holder.focus = ok;
  holder.view->UI_SetLocalRectF({0, 0, 320, 240});
  const DialogRef dialog(new PlainDialog);

  EXPECT_EQ(host.requested.first, PlainDialog::kPlugin);
  EXPECT_EQ(host.requested.second, 4711u);
  EXPECT_EQ(host.theme, nrvui::ui::GetDefaultThemeName());
  EXPECT_EQ(host.users, 0);
  EXPECT_EQ(host.registered, dialog->GetRootView().get());
  EXPECT_EQ(dialog->GetInitialFocus(), ok);
  EXPECT_EQ(dialog->GetOkButton(), ok);
  EXPECT_EQ(dialog->GetCancelButton(), cancel);
  EXPECT_EQ(cancel->UI_GetIndex(), 0u) << "the two exchange their places";
  EXPECT_EQ(ok->UI_GetIndex(), 1u);
  EXPECT_EQ(dialog->GetMinimumSize(), (Point{320, 240}));
  EXPECT_EQ(dialog->GetContentSize(), (Point{320, 240}));
  EXPECT_EQ(holder.asked, std::make_pair(320, 240));
  EXPECT_TRUE(holder.view->UI_IsShown());
  EXPECT_EQ(holder.view->UI_GetParentContainer(), dialog->GetRootView().get());
  EXPECT_EQ(dialog->GetPlacement(), DialogPlacement::kPositioned);
  const vx::UnicodeString message(nullptr);
  (*holder.callback)(message);
  EXPECT_EQ(dialog->heard, &message);
  EXPECT_EQ(dialog->GetDrawingSupplier(), &host.supplier);
  EXPECT_EQ(dialog->GetDialogPoint(), (Point{70, 80}));
  EXPECT_EQ(dialog->GetTitle(), u"Test");
  EXPECT_TRUE(dialog->GetStyle().keepsCentre);
  EXPECT_TRUE(dialog->GetStyle().hasTitleBar && dialog->GetStyle().hasCloseBox);
  EXPECT_FALSE(dialog->GetStyle().staysOnTop || dialog->GetStyle().isToolWindow);
  EXPECT_EQ(dialog->GetStyle().value, 3u);
  EXPECT_EQ(dialog->GetStyle().flags, 1u);
  EXPECT_EQ(dialog->Sheet(), holder.sheet.get());
  EXPECT_FALSE(dialog->FindNodeByID("TestDialog")) << "the dialog is not below its root view";
}

TEST_F(BaseDialogTest, ButtonsAreFoundSwappedAndRegisteredByTheirRules) {
  struct Case {
    const char* cancelID;
    bool sameParent;
    bool isButton;
    bool registered;
    bool swapped;
  };
  const Case cases[] = {
      {"cancelButton", true, true, true, true},        {"cancelButton", false, true, true, false},
      {"cancel_ResetButton", true, true, false, true}, {"cancelButton", true, false, false, false},
      {"CancelButton", true, true, false, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.cancelID);
    host.holder.reset(new TestHolder);
    TestHolder& holder = *host.holder;
    const NodeRef ok = AddButton(holder.layout, "okButton");
    const NodeRef row = holder.Add(holder.layout, new nrvui::ui::UI_Panel, "row");
    AddButton(row, "help");
    const NodeRef parent = c.sameParent ? holder.layout : row;
    UI_Node* const control =
        c.isButton ? static_cast<UI_Node*>(new UI_Button) : new nrvui::controls::UI_Checkbox;
    holder.Add(parent, control, c.cancelID);
    const DialogRef dialog(new PlainDialog);
    EXPECT_EQ(dialog->GetOkButton(), ok);
    EXPECT_EQ(dialog->GetCancelButton() != nullptr, c.registered);
    EXPECT_EQ(ok->UI_GetIndex(), c.swapped ? 2u : 0u);
  }
}

TEST_F(BaseDialogTest, ALayoutThatIsNotAttachedBindsNothing) {
  AddButton(host.holder->layout, "okButton");
  const DialogRef dialog(new PlainDialog({.attach = false}));
  EXPECT_FALSE(dialog->GetOkButton());
  EXPECT_EQ(host.holder->view->UI_GetParentContainer(), nullptr);
  EXPECT_TRUE(host.holder->view->UI_IsShown());
}

TEST_F(BaseDialogTest, PlacesAndThemesAsAsked) {
  const DialogRef still(new PlainDialog({.position = false, .center = false, .theme = "dark"}));
  EXPECT_EQ(still->GetPlacement(), DialogPlacement::kAtPoint);
  EXPECT_EQ(host.theme, u"dark");
  host.holder.reset(new TestHolder);
  const DialogRef centred(new PlainDialog({.position = false}));
  EXPECT_EQ(centred->GetPlacement(), DialogPlacement::kCentered);
  EXPECT_EQ(centred->GetContentSize(), (Point{0, 0}));
}

TEST_F(BaseDialogTest, DoesWithoutWhatTheHostDoesNotGive) {
  host.holder.reset();
  {
    const DialogRef empty(new PlainDialog);
    EXPECT_EQ(empty->GetPlacement(), DialogPlacement::kPositioned);
    EXPECT_EQ(empty->GetContentSize(), (Point{100, 100}));
    EXPECT_EQ(host.registered, empty->GetRootView().get());
    EXPECT_EQ(empty->Sheet(), nullptr);
    empty->UI_ContentRectChanged({0, 0, 50, 50});
    EXPECT_EQ(empty->GetRootView()->UI_GetLocalRectF(false), (RectT<float>{0, 0, 50, 50}));
  }
  host.holder.reset(new TestHolder);
  host.holder->view.reset(new UI_Node);
  const DialogRef withoutMnemonics(new PlainDialog);
  EXPECT_EQ(host.holder->view->UI_GetParentContainer(), withoutMnemonics->GetRootView().get());
  host.registered = nullptr;
  host.gives = false;
  const DialogRef unplaced(new PlainDialog);
  EXPECT_EQ(unplaced->GetPlacement(), DialogPlacement::kAtPoint);
  EXPECT_EQ(host.registered, nullptr);
  EXPECT_EQ(unplaced->GetDrawingSupplier(), nullptr);
  host.hasSuite = false;
  const DialogRef alone(new PlainDialog);
  EXPECT_EQ(alone->UI_GetNodeID(), "TestDialog");
}

TEST_F(BaseDialogTest, SheetAndWindowFollowEachOther) {
  TestHolder& holder = *host.holder;
  holder.view->UI_SetLocalRectF({0, 0, 300, 200});
  const DialogRef dialog(new PlainDialog);
  holder.layout->UI_SetLocalRectF({0, 0, 310, 220});
  EXPECT_EQ(holder.view->UI_GetLocalRectF(false), (RectT<float>{0, 0, 310, 220}));
  EXPECT_EQ(dialog->GetMinimumSize(), (Point{310, 220}));
  EXPECT_EQ(dialog->GetContentSize(), (Point{310, 220}));

  dialog->SetContentSize({400, 300});
  holder.layout->UI_SetLocalRectF({0, 0, 400, 300});
  EXPECT_EQ(dialog->GetMinimumSize(), (Point{310, 220})) << "the dialog has that size already";
  holder.layout->UI_SetLocalRectF({0, 0, 400, 310});
  EXPECT_EQ(dialog->GetMinimumSize(), (Point{400, 310}));

  dialog->UI_ContentRectChanged({0, 0, 99.9f, 50.5f});
  EXPECT_EQ(holder.asked, std::make_pair(99, 50));
  EXPECT_EQ(dialog->GetRootView()->UI_GetLocalRectF(false).right, 99.9f);
}

class ThrowingPresenter final : public nrvui::ui::DialogPresenter {
 public:
  void Present(nrvui::ui::UI_Dialog& dialog) override {
    EXPECT_EQ(vx::ui::ModalContext::Depth(), 1);
    EXPECT_TRUE(vx::ui::ModalContext::IsApplicationBlocked());
    if (throws) throw std::runtime_error("window lost");
    dialog.DefaultCloseOk();
  }
  bool throws = false;
};

template <class T>
void RunsInsideTheModalContext() {
  ThrowingPresenter presenter;
  const nrvui::ui::InstalledPresenter installed(presenter);
  TestHost::current->holder.reset(new TestHolder);
  const boost::intrusive_ptr<TestDialog<T>> dialog(new TestDialog<T>);
  dialog->RunModal();
  EXPECT_EQ(dialog->GetResponse(), nrvui::ui::kOkResponse);
  presenter.throws = true;
  EXPECT_THROW(dialog->RunModal(), std::runtime_error);
  EXPECT_EQ(vx::ui::ModalContext::Depth(), 0);
}

TEST_F(BaseDialogTest, EveryKindOfDialogRunsInsideTheModalContext) {
  RunsInsideTheModalContext<nrvui::ui::UI_Dialog>();
  RunsInsideTheModalContext<vx::ui::UI_PopupModalDialog>();
  RunsInsideTheModalContext<vx::ui::UI_FloatingDialog>();
}

TEST_F(BaseDialogTest, LetsGoOfTheHolderBeforeTheSheet) {
  DialogRef dialog(new PlainDialog);
  host.holder.reset();
  EXPECT_TRUE(events.empty());
  dialog.reset();
  EXPECT_EQ(events, (std::vector<std::string>{"dialog going", "holder gone", "sheet gone"}));
}

}  // namespace
