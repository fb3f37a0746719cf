#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "dialog/vxui_base_dialog.h"
#include "host/suites.h"
#include "host/unicode_string.h"
#include "nrvui/function_presenter.h"
#include "platform/nrvui/ui_node_manager.h"
#include "platform/standin/layout_reader.h"
#include "platform/vxui/drawing_supplier_source.h"
#include "platform/vxui/modal_context.h"
#include "platform/vxui/sheet_factory.h"

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

  NodeRef GetSheetView() override { return view; }
  NodeRef GetLayoutNode() override { return tree.layout; }
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
  inline static long usersOfSheetAtEnd = 0;
};

/// The host's half: its suite hands out this test's factory.
class TestHost final : public SheetFactory, public DrawingSupplierSource {
 public:
  TestHost() {
    current = this;
    heldSuite<VXUserInterfaceMainSuite> = &suite;
  }
  ~TestHost() { heldSuite<VXUserInterfaceMainSuite> = nullptr; }

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
  VXUserInterfaceMainSuite suite = {&Give<SheetFactory>, &Give<DrawingSupplierSource>};
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

using PlainDialog = TestDialog<nrvui::ui::UI_Dialog>;
using DialogRef = boost::intrusive_ptr<PlainDialog>;

std::string Button(const std::string& nodeID) {
  return "<button id='" + nodeID + "' caption='$$$/a=b'/>";
}

class BaseDialogTest : public testing::Test {
 protected:
  /// What the next dialogs hold.
  TestHolder& Lay(const std::string& controls) {
    host.holder.reset(new TestHolder(controls));
    return *host.holder;
  }

  TestHost host;
};

TEST_F(BaseDialogTest, SetsUpTheLayout) {
  TestHolder& holder = Lay(Button("okButton") + Button("cancelButton"));
  DialogRef dialog(new PlainDialog);

  EXPECT_EQ(host.requested, std::make_pair(kPlugin, 4711u));
  EXPECT_EQ(host.theme, nrvui::ui::GetDefaultThemeName());
  EXPECT_EQ(host.registered, dialog->GetRootView().get());
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
  EXPECT_EQ(dialog->GetDrawingSupplier(), &host.supplier);
  EXPECT_EQ(dialog->GetDialogPoint(), (Point{70, 80}));
  EXPECT_EQ(dialog->GetTitle(), u"Test");
  const auto& style = dialog->GetStyle();
  EXPECT_TRUE(style.keepsCentre && style.hasTitleBar && style.hasCloseBox);
  EXPECT_FALSE(style.staysOnTop || style.isToolWindow);
  EXPECT_EQ(style.value, 3u);
  EXPECT_EQ(style.flags, 1u);

  host.holder.reset();
  dialog.reset();
  EXPECT_EQ(TestHolder::usersOfSheetAtEnd, 2) << "the sheet outlives its holder";
}

TEST_F(BaseDialogTest, ButtonsAreFoundSwappedAndRegisteredByTheirRules) {
  const std::string cancel = Button("cancelButton");
  const struct {
    std::string inRow;
    std::string last;
    bool isRegistered;
    bool isSwapped;
  } cases[] = {
      {"", cancel, true, true},
      {cancel, "", true, false},
      {"", Button("cancel_ResetButton"), false, true},
      {"", "<checkbox id='cancelButton' caption='$$$/a=b'/>", false, false},
      {"", Button("CancelButton"), false, false},
  };
  for (const auto& [inRow, last, isRegistered, isSwapped] : cases) {
    SCOPED_TRACE(inRow + last);
    std::string layout = Button("okButton");
    Lay(layout.append("<row>").append(Button("help")).append(inRow).append("</row>").append(last));
    const DialogRef dialog(new PlainDialog);
    ASSERT_TRUE(dialog->GetOkButton());
    EXPECT_EQ(dialog->GetOkButton(), dialog->FindNodeByID("okButton"));
    EXPECT_EQ(dialog->GetCancelButton() != nullptr, isRegistered);
    EXPECT_EQ(dialog->GetOkButton()->UI_GetIndex(), isSwapped ? 2u : 0u);
  }
}

TEST_F(BaseDialogTest, PlacesThemesAndAttachesAsAsked) {
  const NodeRef view = Lay(Button("okButton")).view;
  const DialogRef still(
      new PlainDialog({.position = false, .center = false, .attach = false, .theme = "dark"}));
  EXPECT_EQ(still->GetPlacement(), DialogPlacement::kAtPoint);
  EXPECT_EQ(host.theme, u"dark");
  EXPECT_FALSE(still->GetOkButton());
  EXPECT_EQ(view->UI_GetParentContainer(), nullptr);
  EXPECT_TRUE(view->UI_IsShown());
  const DialogRef centred(new PlainDialog({.position = false}));
  EXPECT_EQ(centred->GetPlacement(), DialogPlacement::kCentered);
}

TEST_F(BaseDialogTest, DoesWithoutWhatTheHostDoesNotGive) {
  const DialogRef empty(new PlainDialog);
  EXPECT_EQ(empty->GetPlacement(), DialogPlacement::kPositioned);
  EXPECT_EQ(empty->GetContentSize(), (Point{100, 100}));
  EXPECT_EQ(host.registered, empty->GetRootView().get());
  empty->UI_ContentRectChanged({0, 0, 50, 50});
  EXPECT_EQ(empty->GetRootView()->UI_GetLocalRectF(false), (Rect{0, 0, 50, 50}));

  const NodeRef plain = Lay("<space/>").view = NodeRef(new UI_Node);
  const DialogRef withoutMnemonics(new PlainDialog);
  EXPECT_EQ(plain->UI_GetParentContainer(), withoutMnemonics->GetRootView().get());
  host.registered = nullptr;
  host.gives = false;
  const DialogRef unplaced(new PlainDialog);
  EXPECT_EQ(unplaced->GetPlacement(), DialogPlacement::kAtPoint);
  EXPECT_EQ(host.registered, nullptr);
  EXPECT_EQ(unplaced->GetDrawingSupplier(), nullptr);
}

TEST_F(BaseDialogTest, SheetAndWindowFollowEachOther) {
  TestHolder& holder = Lay("<space/>");
  const NodeRef layout = holder.tree.layout;
  holder.view->UI_SetLocalRectF({0, 0, 300, 200});
  const DialogRef dialog(new PlainDialog);
  layout->UI_SetLocalRectF({0, 0, 310, 220});
  EXPECT_EQ(holder.view->UI_GetLocalRectF(false), (Rect{0, 0, 310, 220}));
  EXPECT_EQ(dialog->GetMinimumSize(), (Point{310, 220}));
  EXPECT_EQ(dialog->GetContentSize(), (Point{310, 220}));

  dialog->SetContentSize({400, 300});
  layout->UI_SetLocalRectF({0, 0, 400, 300});
  EXPECT_EQ(dialog->GetMinimumSize(), (Point{310, 220})) << "the dialog has that size already";
  layout->UI_SetLocalRectF({0, 0, 400, 310});
  EXPECT_EQ(dialog->GetMinimumSize(), (Point{400, 310}));

  dialog->UI_ContentRectChanged({0, 0, 99.9f, 50.5f});
  EXPECT_EQ(holder.asked, std::make_pair(99, 50));
  EXPECT_EQ(dialog->GetRootView()->UI_GetLocalRectF(false).right, 99.9f);
}

template <class T>
void RunsInsideTheModalContext() {
  bool throws = false;
  const FunctionPresenter presenter([&](nrvui::ui::UI_Dialog& dialog) {
    EXPECT_EQ(vx::ui::ModalContext::Depth(), 1);
    EXPECT_TRUE(vx::ui::ModalContext::IsApplicationBlocked());
    if (throws) throw std::runtime_error("window lost");
    dialog.DefaultCloseOk();
  });
  const boost::intrusive_ptr<TestDialog<T>> dialog(new TestDialog<T>);
  dialog->RunModal();
  EXPECT_EQ(dialog->GetResponse(), nrvui::ui::kOkResponse);
  throws = true;
  EXPECT_THROW(dialog->RunModal(), std::runtime_error);
  EXPECT_EQ(vx::ui::ModalContext::Depth(), 0);
}

TEST_F(BaseDialogTest, EveryKindOfDialogRunsInsideTheModalContext) {
  RunsInsideTheModalContext<nrvui::ui::UI_Dialog>();
  RunsInsideTheModalContext<vx::ui::UI_PopupModalDialog>();
  RunsInsideTheModalContext<vx::ui::UI_FloatingDialog>();
}

}  // namespace
