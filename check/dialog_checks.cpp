#include <boost/smart_ptr/make_shared.hpp>
#include <boost/smart_ptr/weak_ptr.hpp>
#include <stdexcept>

#include "check/basic_suite.h"
#include "check/checked_module.h"
#include "platform/nrvcore/localizer.h"
#include "platform/nrvui/ui_node_manager.h"
#include "platform/nrvui/ui_views.h"
#include "platform/standin/sheet_service.h"
#include "platform/vxui/dialogs.h"
#include "testkit/temporary_folder.h"

namespace check {
namespace {

using nrvui::controls::UI_Checkbox;
using nrvui::controls::UI_UnitNumberEdit;
using nrvui::ui::UI_Dialog;
using nrvui::ui::UI_Node;
using namespace testkit;

/// A running module and a caller of its dialog.
struct Caller : RunningModule {
  using RunningModule::RunningModule;
  using Act = std::function<void(const OpenDialog& open)>;

  /// Leaves the dialog open after `act`, which cancels it.
  void LookAt(const Act& act) { Expect("the answer", RunDialog(data, act), kCancelled); }
  /// Presses Return after `act`.
  void Confirm(const Act& act) {
    const auto confirm = [&](const OpenDialog& open) { act(open), open.Confirm(); };
    Expect("the answer to Return", RunDialog(data, confirm), kSuccess);
  }
  /// Passes the address of the record itself, where RunDialog passes that of a copy.
  void ConfirmDirectly(MosaicParameters*& params, const Act& act) {
    const FunctionPresenter presenter(
        [&](UI_Dialog& dialog) { act({dialog}), dialog.OnReturnKey(); });
    const auto run = host.Suites().Find<MosaicSuite>()->RunMosaicDialog;
    Expect("the answer to Return", run(&data.state, &params), kSuccess);
  }

  CallerData data;
  MosaicParameters& record = data.record;
  MosaicDialogState& state = data.state;
};

void UseRatio(const OpenDialog& open) {
  open.Enter("HorizontalCountTxt", "12");
  open.Enter("NewWidthTxt", "12");
  open.Click("MosaicUseRatioButton");
}

std::vector<float> Pair(const auto& point) {
  return {point.x, point.y};
}

std::vector<float> Extent(const UI_Node& node) {
  const auto rect = node.UI_GetLocalRectF();
  return {rect.right, rect.bottom};
}

/// A folder for layouts that differ from the module's.
struct LayoutFolder {
  /// Writes the module's layout with the first occurrence of each first text replaced by the
  /// second. It has no references between elements, because the host refuses those to a control
  /// that is missing.
  void Write(const std::vector<std::pair<std::string, std::string>>& replacements) const {
    std::string text = ContentOf(Resources().plugin / kLayout);
    for (const std::string reference : {" for=\"", " focus=\""})
      for (size_t place; (place = text.find(reference)) != text.npos;)
        text.erase(place, text.find('"', place + reference.size()) + 1 - place);
    for (const auto& [from, to] : replacements) {
      const size_t place = text.find(from);
      if (place == text.npos) throw std::runtime_error("the layout has no " + from);
      text.replace(place, from.size(), to);
    }
    folder.Write(kLayout, text);
  }
  standin::ResourceFolders Folders() const { return {folder.path, folder.path}; }

  static constexpr const char* kLayout = "layouts/16301.xml";
  const TemporaryFolder folder;
};

/// Creates the host's sheets with a hidden view, and records the arguments.
class WatchingFactory final : public SheetFactory {
 public:
  explicit WatchingFactory(standin::Host& owner) : host(owner) { current = this; }

  boost::shared_ptr<SheetHolder> CreateSheetHolder(OpaqueModule* plugin, uint32_t resource,
                                                   const nrvcore::UTF16String& theme) override {
    asked += std::to_string(resource) + (plugin ? " of " + plugin->fileName : "") + " in theme \"" +
             Utf8(theme) + "\"";
    const auto holder =
        boost::make_shared<Holder>(host.Sheets().CreateSheetHolder(plugin, resource, theme));
    holder->GetSheetView()->UI_Show(false);
    return holder;
  }
  void RegisterDialogView(nrvui::ui::OS_View* view) override { registered = view; }

  /// In place of the host's own operation.
  static ResultCode Get(SheetFactory** out) { return *out = current, kSuccess; }

  std::string asked;
  nrvui::ui::OS_View* registered = nullptr;

 private:
  /// The dialog must keep the sheet until it has released the holder.
  class Holder final : public SheetHolder {
   public:
    explicit Holder(const boost::shared_ptr<SheetHolder>& original) : holder(original) {}
    ~Holder() { Expect("the sheet lives while its holder is released", !sheet.expired()); }
    boost::intrusive_ptr<UI_Node> GetSheetView() override { return holder->GetSheetView(); }
    boost::intrusive_ptr<UI_Node> GetLayoutNode() override { return holder->GetLayoutNode(); }
    boost::shared_ptr<VXUICairnSheet> GetSheet() override {
      auto own = boost::make_shared<VXUICairnSheet>();
      sheet = own;
      return own;
    }
    boost::intrusive_ptr<UI_Node> GetInitialFocus() override { return holder->GetInitialFocus(); }
    void ResizeSheet(int32_t width, int32_t height) override { holder->ResizeSheet(width, height); }
    void SetMessageCallback(
        boost::shared_ptr<boost::function<void(const vx::UnicodeString&)>> callback) override {
      Expect("a callback for messages", callback && *callback);
      holder->SetMessageCallback(callback);
    }

   private:
    boost::shared_ptr<SheetHolder> holder;
    boost::weak_ptr<VXUICairnSheet> sheet;
  };

  standin::Host& host;
  inline static WatchingFactory* current = nullptr;
};

CHECK("dialog/opens-where-host-places-it") {
  Caller caller;
  Calls calls = caller.CallsDuring([&] {
    caller.LookAt([](const OpenDialog& open) {
      const UI_Dialog& dialog = open.dialog;
      Expect("its ID", dialog.UI_GetNodeID().View(), "CreateMosaicDialog");
      Expect("its title", Utf8(dialog.GetTitle()), "Create Tesserae");
      Expect("placed by the platform",
             dialog.GetPlacement() == nrvui::ui::DialogPlacement::kPositioned);
      const auto& style = dialog.GetStyle();
      Expect("keeps its centre", style.keepsCentre);
      Expect("has a title bar and a close box", style.hasTitleBar && style.hasCloseBox);
      Expect("stays on top or is a tool", style.staysOnTop || style.isToolWindow, false);
      Expect("the style's value", style.value, 0u);
      Expect("the style's flags", style.flags, 1u);
      Expect("the point", Pair(dialog.GetDialogPoint()), std::vector{100.0f, 100.0f});
      Expect("modal contexts", vx::ui::ModalContext::Depth(), 1);
      Expect("has a drawing supplier", dialog.GetDrawingSupplier() != nullptr);
      Expect("the content's size", Pair(dialog.GetContentSize()), std::vector{421.0f, 416.0f});
      Expect("the least size", Pair(dialog.GetMinimumSize()), std::vector{421.0f, 416.0f});
      Expect("the focus", dialog.GetInitialFocus().get(), &open.Node("NewWidthTxt"));
      Expect("the OK button", dialog.GetOkButton().get(), &open.Node("okButton"));
      Expect("the Cancel button", dialog.GetCancelButton().get(), &open.Node("cancelButton"));
      Expect("the place of Cancel", open.Node("cancelButton").UI_GetIndex(), 1u);
      Expect("the place of OK", open.Node("okButton").UI_GetIndex(), 2u);
    });
  });
  Expect("modal contexts afterwards", vx::ui::ModalContext::Depth(), 0);
  std::erase(calls, "Sheet Holder/GetSheetView");  // allowed any number of times
  const std::string suite = "VX User Interface Main Suite";
  Expect("calls of the host", calls,
         Calls{"acquire/" + suite, suite + "/GetDrawingSupplierSource", "release/" + suite,
               "Drawing Supplier Source/GetDrawingSupplier", "acquire/" + suite,
               suite + "/GetSheetFactory", "release/" + suite, "Sheet Factory/CreateSheetHolder",
               "Sheet Holder/GetInitialFocus", "Sheet Holder/SetMessageCallback",
               "Sheet Holder/ResizeSheet", "Sheet Holder/GetLayoutNode",
               "Sheet Factory/RegisterDialogView", "Sheet Holder/GetSheet"});
}

CHECK("dialog/shows-sheet-of-host") {
  Caller caller;
  WatchingFactory factory(caller.host);
  VXUserInterfaceMainSuite suite = *caller.host.Suites().Find<VXUserInterfaceMainSuite>();
  suite.GetSheetFactory = &WatchingFactory::Get;
  BasicSuite<1>::tables[VXUserInterfaceMainSuite::kName] = &suite;
  caller.module.basicSuite = &BasicSuite<1>::table;
  (void)caller.module.Send(messages::kMenuGo);
  caller.LookAt([&](const OpenDialog& open) {
    Expect("the layout is shown", open.Node("okButton").UI_IsVisible());
    Expect("the registered view", factory.registered,
           dynamic_cast<nrvui::ui::OS_View*>(open.dialog.GetRootView().get()));
  });
  Expect("the layout", factory.asked,
         "16301 of " + caller.module.Ref()->fileName + " in theme \"" +
             Utf8(nrvui::ui::GetDefaultThemeName()) + "\"");
}

CHECK("dialog/follows-sizes") {
  Caller caller;
  caller.LookAt([](const OpenDialog& open) {
    const auto& root = open.dialog.GetRootView();
    UI_Node& view = **root->ChildBegin();
    UI_Node& layout = **view.ChildBegin();
    (void)nrvui::gestures::Resize(open.dialog, {600, 500});
    Expect("the root view", Extent(*root), std::vector{600.0f, 500.0f});
    Expect("the layout", Extent(layout), std::vector{600.0f, 500.0f});
    layout.UI_SetLocalRectF({0, 0, 700, 450});
    Expect("the sheet's view", Extent(view), std::vector{700.0f, 450.0f});
    Expect("the dialog", Extent(open.dialog), std::vector{700.0f, 450.0f});
    Expect("the least size", Pair(open.dialog.GetMinimumSize()), std::vector{700.0f, 450.0f});
    open.dialog.UI_SetLocalRectF({0, 0, 799.9f, 599.9f});
    Expect("the layout, in whole points", Extent(layout), std::vector{799.0f, 599.0f});
  });
}

CHECK("dialog/binds-buttons-of-their-class") {
  const LayoutFolder layout;
  Caller caller(layout.Folders());
  const auto expectButtons = [&](const char* ok, const char* cancel, const char* first) {
    caller.LookAt([&](const OpenDialog& open) {
      const auto id = [](const auto& node) {
        return node ? std::string(node->UI_GetNodeID().View()) : "none";
      };
      Expect("the OK button", id(open.dialog.GetOkButton()), ok);
      Expect("the Cancel button", id(open.dialog.GetCancelButton()), cancel);
      Expect("the place of " + std::string(first), open.Node(first).UI_GetIndex(), 1u);
    });
  };
  layout.Write({{"id=\"cancelButton", "id=\"cancel_ResetButton"}});
  expectButtons("okButton", "none", "cancel_ResetButton");
  layout.Write({{"<button id=\"cancelButton", "<checkbox id=\"cancelButton"}});
  expectButtons("okButton", "none", "okButton");
  layout.Write({{"<button id=\"okButton", "<checkbox id=\"okButton"}});
  expectButtons("none", "cancelButton", "okButton");
  layout.Write({{"<button id=\"cancelButton", "<space/><row><button id=\"cancelButton"},
                {"</row>", "</row></row>"}});
  expectButtons("okButton", "cancelButton", "okButton");
}

CHECK("dialog/needs-each-control-in-its-class") {
  const LayoutFolder layout;
  Caller caller(layout.Folders());
  const auto expectAnswer = [&](ResultCode expected) {
    CallerData data;
    const CallerData given = data;
    const auto confirm = [](const OpenDialog& open) { open.Confirm(); };
    Expect("the answer", caller.RunDialog(data, confirm), expected);
    if (expected != kSuccess) ExpectFields(data, given);
  };
  layout.Write({});
  expectAnswer(kSuccess);
  const std::pair<std::string, std::vector<std::string>> controls[] = {
      {"label", {"OrigWidthStatic", "OrigHeightStatic"}},
      {"number",
       {"NewWidthTxt", "NewHeightTxt", "HorizontalCountTxt", "VerticalCountTxt", "TileSpaceHorzTxt",
        "TileSpaceVertTxt"}},
      {"checkbox", {"UsePercentChk", "DeleteRasterChk"}},
      {"radio", {"HorizontalRadio", "VerticalRadio", "ColorRadio", "GrayRadio"}},
      {"text-button", {"MosaicUseRatioButton"}},
  };
  for (const auto& [element, ids] : controls) {
    for (const std::string& id : ids) {
      const Trying trying(id);
      layout.Write({{" id=\"" + id, " id=\"Other"}});
      expectAnswer(kCannot);
      const std::string begin = "<" + element + " id=\"";
      layout.Write({{begin + id, "<row id=\"" + id + "\"/>" + begin + "Other"}});
      expectAnswer(kCannot);
    }
  }
  layout.Write({{"<text-button id=\"MosaicUse", "<button id=\"MosaicUse"}});
  expectAnswer(kCannot);
}

CHECK("dialog/shows-source-in-points") {
  Caller caller;
  caller.state.usePercent = 5;
  caller.record.deleteRaster = 9;
  caller.LookAt([](const OpenDialog& open) {
    Expect("deletes the raster", open.Get<UI_Checkbox>("DeleteRasterChk").IsChecked());
    Expect("the source's height", open.Label("OrigHeightStatic"), "200 pt");
    Expect("the source's width", open.Label("OrigWidthStatic"), "300 pt");
    Expect("the new height", open.Text("NewHeightTxt"), "100 %");
  });
}

CHECK("dialog/ignores-bounds-without-size") {
  Caller caller;
  caller.record.sizeUnavailable = 2;
  caller.Confirm([](const OpenDialog& open) {
    Expect("the source's width", open.Label("OrigWidthStatic"), "N/A");
    Expect("the source's height", open.Label("OrigHeightStatic"), "N/A");
    open.Get("GrayRadio").SetDisabled(false);
    open.Click("GrayRadio");
    open.Get("UsePercentChk").SetDisabled(false);
    open.Click("UsePercentChk");
    Expect("the new width", open.Text("NewWidthTxt"), "100 pt");
  });
  Expect("record.isColor, since the button has no handler", caller.record.isColor, 1);
  Expect("state.noOriginalSize", caller.state.noOriginalSize, 2);
}

CHECK("dialog/speaks-users-language") {
  auto& localizer = nrvcore::config::Localizer::Get();
  localizer.SetCatalogues(Resources().host / "translations");
  localizer.SetLanguage("de");
  Expect("a German catalogue", localizer.HasCatalogue());
  const auto text = [&](const char* key) { return Utf8(localizer.Localize(key)); };
  Caller caller;
  caller.record.sizeUnavailable = 1;
  caller.LookAt([&](const OpenDialog& open) {
    Expect("the title", Utf8(open.dialog.GetTitle()),
           text("$$$/Tesserae/Cap/CreateTesserae=Create Tesserae"));
    for (const char* label : {"OrigWidthStatic", "OrigHeightStatic"})
      Expect(label, open.Label(label), text("$$$/Tesserae/Str/Misc/1=N/A"));
  });
}

CHECK("dialog/shows-mnemonics-as-set") {
  Caller caller;
  auto& settings = nrvui::ui::UI_NodeManager::Get().GetCustomSettingsManager();
  const auto expectShown = [&](bool expected) {
    caller.LookAt([expected](const OpenDialog& open) {
      Expect("mnemonics", open.Get("UsePercentChk").IsMnemonicShown(), expected);
    });
  };
  expectShown(false);
  settings.SetSetting("windows.MnemonicsAlwaysOn", true);
  expectShown(true);
  settings.SetSetting("windows.MnemonicsAlwaysOn", 1);
  Expect("the answer, when the setting is a number",
         caller.RunDialog(caller.data, [](const OpenDialog&) {}), kCannot);
  settings.SetSetting("windows.MnemonicsAlwaysOn", false);
  expectShown(false);
}

CHECK("dialog/writes-result-if-destruction-fails") {
  class FailingWindow final : public nrvui::ui::NodeObserver {
   public:
    void NodeChanged(UI_Node&) override {}
    void NodeDestroyed(UI_Node&) override { throw std::runtime_error("window lost"); }
  } observer;
  Caller caller;
  const ResultCode code = caller.RunDialog(caller.data, [&](const OpenDialog& open) {
    open.dialog.UI_SetObserver(&observer);
    open.Enter("HorizontalCountTxt", "9");
    open.Confirm();
  });
  Expect("the answer", code, kCannot);
  Expect("record.tilesAcross", caller.record.tilesAcross, 9);
  Expect("state.aspectRatio", caller.state.aspectRatio, 1.5f);
}

CHECK("dialog/writes-nothing-if-run-throws") {
  Caller caller;
  const FunctionPresenter presenter([](UI_Dialog& dialog) {
    dialog.DefaultCloseOk();
    throw std::runtime_error("window lost");
  });
  const CallerData given = caller.data;
  Expect("the answer", caller.RunDialog(caller.data), kCannot);
  ExpectFields(caller.data, given);
  Expect("modal contexts", vx::ui::ModalContext::Depth(), 0);
}

CHECK("dialog/refuses-invalid-requests") {
  Caller caller;
  const auto run = caller.host.Suites().Find<MosaicSuite>()->RunMosaicDialog;
  MosaicParameters* params = &caller.record;
  MosaicParameters* none = nullptr;
  caller.ExpectNoDialog("without a state", run, nullptr, &params);
  caller.ExpectNoDialog("without an address", run, &caller.state, nullptr);
  caller.ExpectNoDialog("without a record", run, &caller.state, &none);
  Expect("the unload", caller.module.Send(messages::kUnload), kSuccess);
  caller.ExpectNoDialog("after an unload", run, &caller.state, &params);
  Expect("the reload", caller.module.Send(messages::kReload), kSuccess);
  Expect("the shut-down", caller.module.ShutDown(), kSuccess);
  caller.ExpectNoDialog("after a shut-down", run, &caller.state, &params);
}

CHECK("dialog/writes-to-record-given-at-its-end") {
  Caller caller;
  const CallerData given = caller.data;
  MosaicParameters moved{};
  MosaicParameters* params = &caller.record;
  caller.ConfirmDirectly(params, [&](const OpenDialog&) { params = &moved; });
  Expect("the record's address", params, &moved);
  Expect("record.tilesAcross", moved.tilesAcross, 30);
  ExpectFields({caller.record, given.state}, given);
}

CHECK("dialog/writes-nothing-while-open") {
  Caller caller;
  const CallerData given = caller.data;
  MosaicParameters* params = &caller.record;
  caller.ConfirmDirectly(params, [&](const OpenDialog& open) {
    for (const char* control : {"GrayRadio", "UsePercentChk", "DeleteRasterChk"})
      open.Click(control);
    ExpectFields(caller.data, given);
  });
  Expect("record.isColor", caller.record.isColor, 0);
}

// If the host refuses an operation, its field keeps its value; the other field is set.
CHECK("dialog/computes-ratio-through-host") {
  struct {
    const char* refused;
    size_t call;
    int32_t tilesDown;
    float newHeight;
  } const cases[] = {{"VX Real Math Suite/Divide", 1, 20, 200},
                     {"VX Real Math Suite/Multiply", 1, 20, 8},
                     {"VX Real Math Suite/Multiply", 2, 8, 200}};
  Caller caller;
  const auto expect = [&](int32_t tilesDown, float newHeight) {
    caller.record = SampleRecord();
    caller.Confirm(UseRatio);
    Expect("record.tilesDown", caller.record.tilesDown, tilesDown);
    Expect("record.newHeight", caller.record.newHeight, newHeight);
  };
  for (const auto& [refused, call, tilesDown, newHeight] : cases) {
    const Trying trying(std::string(refused) + ", call " + std::to_string(call));
    caller.host.Operations().Refuse(refused, kCannot, call);
    expect(tilesDown, newHeight);
  }
  const Trying trying("with the suite acquired for the button");
  Expect("the unload", caller.module.Send(messages::kUnload), kSuccess);
  caller.host.Operations().Refuse("acquire/QP Access Suite", kRefused);
  Expect("the reload", caller.module.Send(messages::kReload), kRefused);
  expect(8, 8);
}

CHECK("dialog/truncates-values-set-by-code") {
  Caller caller;
  caller.Confirm([](const OpenDialog& open) {
    const auto field = [&](const char* id) -> auto& {
      return open.Get<UI_UnitNumberEdit>(id);
    };
    field("HorizontalCountTxt").SetNumber(65546.9);
    field("NewWidthTxt").SetNumber(-7.9);
    open.Click("MosaicUseRatioButton");
    Expect("tiles down, from the low 16 bits", field("VerticalCountTxt").GetNumber(), 7);
    Expect("the new height, rounded away from zero", field("NewHeightTxt").GetNumber(), -5);
    field("TileSpaceHorzTxt").SetNumber(2.9);
    field("TileSpaceVertTxt").SetNumber(-2.9);
    field("VerticalCountTxt").SetNumber(70000.9);
  });
  Expect("record.tileSpacingHorizontal", caller.record.tileSpacingHorizontal, 2);
  Expect("record.tileSpacingVertical", caller.record.tileSpacingVertical, -2);
  Expect("record.tilesAcross", caller.record.tilesAcross, 65546);
  Expect("record.tilesDown", caller.record.tilesDown, 70000);
  Expect("record.newWidth", caller.record.newWidth, -7.9f);
}

CHECK("dialog/uses-first-control-of-exact-id") {
  Caller caller;
  caller.Confirm([](const OpenDialog& open) {
    const auto& former = open.Get<UI_UnitNumberEdit>("VerticalCountTxt");
    std::vector<boost::intrusive_ptr<UI_UnitNumberEdit>> fields;
    // Closer to the root than the layout's field; of two at one depth, the first counts.
    for (const char* id : {"verticalCountTxt", "VerticalCountTx", "VerticalCountTxt ",
                           "VerticalCountTxt", "VerticalCountTxt"}) {
      fields.emplace_back(new UI_UnitNumberEdit)->UI_SetNodeID(id);
      open.dialog.GetRootView()->ChildPushBack(fields.back());
    }
    open.Enter("HorizontalCountTxt", "12");
    open.Click("MosaicUseRatioButton");
    for (const auto& field : fields)
      Expect("a field", field->GetNumber(), field == fields[3] ? 8 : 0);
    Expect("the field of the layout", former.GetNumber(), 20);
    open.dialog.UI_SetNodeID("okButton");  // the search begins with the root view
  });
  Expect("record.tilesDown", caller.record.tilesDown, 8);
  const FunctionPresenter presenter([](UI_Dialog& dialog) {
    dialog.GetRootView()->UI_SetNodeID("VerticalCountTxt");
    OpenDialog{dialog}.Confirm();
  });
  Expect("the answer where the root has the ID of a field", caller.RunDialog(caller.data), kCannot);
}

}  // namespace
}  // namespace check
