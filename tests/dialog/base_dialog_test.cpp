#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <string_view>

#include "dialog/vxui_base_dialog.h"
#include "host/suite_access.h"
#include "host/unicode_string.h"
#include "platform/nrvui/ui_controls.h"
#include "platform/nrvui/ui_node.h"
#include "platform/nrvui/ui_node_manager.h"
#include "platform/standin/layout_reader.h"
#include "platform/vxui/dialogs.h"
#include "platform/vxui/host_interfaces.h"
#include "testkit/function_presenter.h"

namespace {

using nrvui::ui::DialogPlacement;
using nrvui::ui::UI_Node;
using NodeRef = boost::intrusive_ptr<UI_Node>;
using Point = nrvcore::geom::PointT<float>;
using Rect = nrvcore::geom::RectT<float>;

class TestHolder final : public SheetHolder {
 public:
  explicit TestHolder(const std::string& controls)
      : tree(standin::ParseLayout("<sheet>" + controls + "</sheet>", "", nullptr)) {
    view->UI_Show(false);
    view->UI_SetLocalRectF({0, 0, 320, 240});
  }
  ~TestHolder() { usersOfSheetAtEnd = sheet.use_count(); }

  NodeRef GetSheetView() override { return calls += "view ", view; }
  NodeRef GetLayoutNode() override { return calls += "layout ", tree.layout; }
  boost::shared_ptr<VXUICairnSheet> GetSheet() override { return sheet; }
  NodeRef GetInitialFocus() override { return focus; }
  void ResizeSheet(int32_t width, int32_t height) override { asked = {width, height}; }
  void SetMessageCallback(
      boost::shared_ptr<boost::function<void(const vx::UnicodeString&)>> function) override {
    callback = function;
  }

  standin::SheetTree tree;
  NodeRef view = tree.view;
  NodeRef focus = view;
  boost::shared_ptr<VXUICairnSheet> sheet{new VXUICairnSheet};
  boost::shared_ptr<boost::function<void(const vx::UnicodeString&)>> callback;
  std::pair<int32_t, int32_t> asked{-1, -1};
  std::string calls;
  inline static long usersOfSheetAtEnd = 0;
};

/// Provides the host's user-interface suite, with this object as sheet factory.
class TestHost final : public SheetFactory, public DrawingSupplierSource {
 public:
  TestHost() {
    current = this;
    basicSuite = &basic;
  }
  ~TestHost() {
    EXPECT_EQ(users, 0);
    basicSuite = nullptr;
  }

  boost::shared_ptr<SheetHolder> CreateSheetHolder(OpaqueModule* plugin, uint32_t resourceID,
                                                   const nrvcore::UTF16String& themeName) override {
    requested = {plugin, resourceID};
    theme = themeName;
    return holder;
  }
  const nrvui::drawbot::SupplierInterface* GetDrawingSupplier() override { return &supplier; }
  void RegisterDialogView(nrvui::ui::OS_View* rootView) override { registered = rootView; }

  static ResultCode Acquire(const char* name, int32_t version, const void** table) {
    if (std::string_view(name) != "VX User Interface Main Suite" || version != 1001)
      return ResultCode::kCannot;
    ++current->users;
    *table = &current->suite;
    return ResultCode::kSuccess;
  }
  static ResultCode Release(const char*, int32_t) { return --current->users, ResultCode::kSuccess; }

  template <class Object>
  static ResultCode Give(Object** out) {
    if (current->gives) *out = current;
    return ResultCode::kSuccess;
  }

  inline static TestHost* current = nullptr;
  VXUserInterfaceMainSuite suite = {&Give<SheetFactory>, &Give<DrawingSupplierSource>};
  QPBasicSuite basic = {&Acquire, &Release};
  int users = 0;
  bool gives = true;
  nrvui::drawbot::SupplierInterface supplier;
  boost::shared_ptr<TestHolder> holder;
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

const PluginRef kPlugin = reinterpret_cast<PluginRef>(0x1234);

template <class T>
class TestDialog : public VXUIBaseDialog<T> {
 public:
  explicit TestDialog(const Options& options = {})
      : VXUIBaseDialog<T>(kPlugin, "TestDialog", u"Test", 4711, options.position, nullptr,
                          options.center, 3, true, options.theme, options.attach,
                          Point{70.0f, 80.0f}) {}

  void OnSheetMessage(const vx::UnicodeString& message) override {
    heard = &message;
    VXUIBaseDialog<T>::OnSheetMessage(message);
  }

  const vx::UnicodeString* heard = nullptr;
};

std::string Button(const std::string& nodeID, const std::string& element = "button") {
  return "<" + element + " id='" + nodeID + "' caption='$$$/a=b'/>";
}

template <class T>
class BaseDialogTest : public testing::Test {
 protected:
  /// Sets the controls of the dialogs that are made from now on.
  TestHolder& SetLayout(const std::string& controls) {
    host.holder.reset(new TestHolder(controls));
    return *host.holder;
  }
  static boost::intrusive_ptr<TestDialog<T>> Make(const Options& options = {}) {
    return new TestDialog<T>(options);
  }

  TestHost host;
};

using Kinds =
    testing::Types<nrvui::ui::UI_Dialog, vx::ui::UI_PopupModalDialog, vx::ui::UI_FloatingDialog>;
TYPED_TEST_SUITE(BaseDialogTest, Kinds);

TYPED_TEST(BaseDialogTest, BuildsItsContentFromTheLayout) {
  TestHolder& holder = this->SetLayout(Button("okButton") + Button("cancelButton"));
  auto dialog = this->Make();

  EXPECT_EQ(this->host.requested, std::make_pair(kPlugin, 4711u));
  EXPECT_EQ(this->host.theme, nrvui::ui::GetDefaultThemeName());
  EXPECT_EQ(this->host.registered, dialog->GetRootView().get());
  EXPECT_EQ(dialog->GetInitialFocus(), holder.focus);
  EXPECT_EQ(dialog->GetMinimumSize(), (Point{320, 240}));
  EXPECT_EQ(dialog->GetContentSize(), (Point{320, 240}));
  EXPECT_EQ(holder.asked, std::make_pair(320, 240));
  EXPECT_TRUE(holder.view->UI_IsShown());
  EXPECT_EQ(holder.view->UI_GetParentContainer(), dialog->GetRootView().get());
  EXPECT_EQ(dialog->GetPlacement(), DialogPlacement::kPositioned);
  const vx::UnicodeString message(nullptr);
  (*holder.callback)(message);
  EXPECT_EQ(dialog->heard, &message);
  EXPECT_EQ(dialog->GetDrawingSupplier(), &this->host.supplier);
  EXPECT_EQ(dialog->GetDialogPoint(), (Point{70, 80}));
  EXPECT_EQ(dialog->GetTitle(), u"Test");
  const auto& style = dialog->GetStyle();
  EXPECT_TRUE(style.keepsCentre && style.hasTitleBar && style.hasCloseBox);
  EXPECT_FALSE(style.staysOnTop || style.isToolWindow);
  EXPECT_EQ(style.value, 3u);
  EXPECT_EQ(style.flags, 1u);

  this->host.holder.reset();
  dialog.reset();
  EXPECT_EQ(TestHolder::usersOfSheetAtEnd, 2) << "the sheet outlives its holder";
}

TYPED_TEST(BaseDialogTest, OkAndCancelButtonsAreRegisteredAndSwapPlaces) {
  const std::string ok = Button("okButton");
  const std::string help = Button("help");
  const std::string cancel = Button("cancelButton");
  const std::string reset = Button("cancel_ResetButton");
  const struct {
    std::string layout;
    std::string order;  // of the buttons afterwards
    bool isOkRegistered = true;
    bool isCancelRegistered = true;
  } cases[] = {
      {ok + help + cancel, "cancelButton help okButton "},
      {cancel + help + ok, "okButton help cancelButton "},
      {ok + "<row>" + help + cancel + "</row>", "okButton help cancelButton "},
      {ok + help + reset, "cancel_ResetButton help okButton ", true, false},
      {ok + reset + cancel, "cancelButton cancel_ResetButton okButton "},
      {ok + help + Button("cancelButton", "checkbox"), "okButton help cancelButton ", true, false},
      {Button("okButton", "checkbox") + help + cancel, "okButton help cancelButton ", false, true},
      {ok + help + Button("CancelButton"), "okButton help CancelButton ", true, false},
  };
  for (const auto& [layout, order, isOkRegistered, isCancelRegistered] : cases) {
    SCOPED_TRACE(layout);
    const TestHolder& holder = this->SetLayout(layout);
    const auto dialog = this->Make();
    const auto expected = [&](const char* nodeID, bool isRegistered) {
      return isRegistered ? dialog->FindNodeByID(nodeID) : nullptr;
    };
    EXPECT_EQ(dialog->GetOkButton(), expected("okButton", isOkRegistered));
    EXPECT_EQ(dialog->GetCancelButton(), expected("cancelButton", isCancelRegistered));
    std::string found;
    nrvui::ui::ForEachBelow<nrvui::controls::UI_ControlView>(
        *holder.view, [&](UI_Node& node) { found.append(node.UI_GetNodeID().View()).append(" "); });
    EXPECT_EQ(found, order);
  }
}

TYPED_TEST(BaseDialogTest, FollowsTheConstructorsArgumentsForPlaceThemeAndAttachment) {
  const NodeRef view = this->SetLayout(Button("okButton")).view;
  const auto still =
      this->Make({.position = false, .center = false, .attach = false, .theme = "dark"});
  EXPECT_EQ(still->GetPlacement(), DialogPlacement::kAtPoint);
  EXPECT_EQ(this->host.theme, u"dark");
  EXPECT_FALSE(still->GetOkButton());
  EXPECT_EQ(view->UI_GetParentContainer(), nullptr);
  EXPECT_TRUE(view->UI_IsShown());
  EXPECT_EQ(this->Make({.position = false})->GetPlacement(), DialogPlacement::kCentered);
}

TYPED_TEST(BaseDialogTest, IsEmptyIfTheHostProvidesNoLayoutOrFactory) {
  const auto empty = this->Make();
  EXPECT_EQ(empty->GetPlacement(), DialogPlacement::kPositioned);
  EXPECT_EQ(empty->GetContentSize(), (Point{100, 100}));
  EXPECT_EQ(this->host.registered, empty->GetRootView().get());
  empty->UI_ContentRectChanged({0, 0, 50, 50});
  EXPECT_EQ(empty->GetRootView()->UI_GetLocalRectF(), (Rect{0, 0, 50, 50}));

  const NodeRef plain = this->SetLayout("<space/>").view = NodeRef(new UI_Node);
  const auto withoutMnemonics = this->Make();
  EXPECT_EQ(plain->UI_GetParentContainer(), withoutMnemonics->GetRootView().get());
  this->host.registered = nullptr;
  this->host.gives = false;
  const auto unplaced = this->Make();
  EXPECT_EQ(unplaced->GetPlacement(), DialogPlacement::kAtPoint);
  EXPECT_EQ(this->host.registered, nullptr);
  EXPECT_EQ(unplaced->GetDrawingSupplier(), nullptr);
}

TYPED_TEST(BaseDialogTest, ResizingTheSheetOrTheWindowResizesTheOther) {
  TestHolder& holder = this->SetLayout("<space/>");
  const NodeRef layout = holder.tree.layout;
  holder.view->UI_SetLocalRectF({0, 0, 300, 200});
  const auto dialog = this->Make();
  holder.calls.clear();
  layout->UI_SetLocalRectF({0, 0, 310, 220});
  EXPECT_EQ(holder.calls, "layout view ");
  EXPECT_EQ(holder.view->UI_GetLocalRectF(), (Rect{0, 0, 310, 220}));
  EXPECT_EQ(dialog->GetMinimumSize(), (Point{310, 220}));
  EXPECT_EQ(dialog->GetContentSize(), (Point{310, 220}));

  dialog->SetContentSize({400, 300});
  layout->UI_SetLocalRectF({0, 0, 400, 300});
  EXPECT_EQ(dialog->GetMinimumSize(), (Point{310, 220})) << "the dialog has that size already";
  layout->UI_SetLocalRectF({0, 0, 400, 310});
  EXPECT_EQ(dialog->GetMinimumSize(), (Point{400, 310}));

  dialog->UI_ContentRectChanged({0, 0, 99.9f, 50.5f});
  EXPECT_EQ(holder.asked, std::make_pair(99, 50));
  EXPECT_EQ(dialog->GetRootView()->UI_GetLocalRectF().right, 99.9f);
}

TYPED_TEST(BaseDialogTest, LeavesTheModalContextAlsoIfTheRunThrows) {
  bool throws = false;
  const FunctionPresenter presenter([&](nrvui::ui::UI_Dialog& dialog) {
    EXPECT_EQ(vx::ui::ModalContext::Depth(), 1);
    if (throws) throw std::runtime_error("window lost");
    dialog.DefaultCloseOk();
  });
  const auto dialog = this->Make();
  dialog->RunModal();
  EXPECT_EQ(dialog->GetResponse(), nrvui::ui::kOkResponse);
  throws = true;
  EXPECT_THROW(dialog->RunModal(), std::runtime_error);
  EXPECT_EQ(vx::ui::ModalContext::Depth(), 0);
}

}  // namespace
