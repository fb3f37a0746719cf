#include <boost/smart_ptr/make_shared.hpp>
#include <boost/smart_ptr/weak_ptr.hpp>
#include <stdexcept>

#include "check/basic_suite.h"
#include "check/checked_module.h"
#include "platform/nrvcore/localizer.h"
#include "platform/nrvui/ui_node_manager.h"
#include "platform/nrvui/ui_views.h"
#include "platform/standin/sheet_service.h"
#include "platform/vxui/modal_context.h"
#include "testkit/function_presenter.h"
#include "testkit/open_dialog.h"
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
  using Person = std::function<void(const OpenDialog& open)>;

  /// Calls the suite's function; `person` acts on the open dialog.
  ResultCode Run(const Person& person) {
    const FunctionPresenter presenter([&](UI_Dialog& dialog) {
      // The module turns an exception into its answer, so it is reported here.
      try {
        person({dialog});
      } catch (const std::exception& error) {
        Fail(error.what());
      }
    });
    return RunDialog(data.record, data.state);
  }
  /// The same for a dialog that `person` leaves open, which cancels it.
  void LookAt(const Person& person) { Expect("the answer", Run(person), kCancelled); }

  CallerData data{SampleRecord(), {}};
  MosaicParameters& record = data.record;
  MosaicDialogState& state = data.state;
};

void UseRatio(const OpenDialog& open) {
  open.Enter("HorizontalCountTxt", "12");
  open.Enter("NewWidthTxt", "12");
  open.Click("MosaicUseRatioButton");
  open.Confirm();
}

std::vector<float> Pair(const auto& point) {
  return {point.x, point.y};
}

std::vector<float> Extent(const UI_Node& node) {
  const auto rect = node.UI_GetLocalRectF();
  return {rect.right, rect.bottom};
}

std::string Without(const std::string& attribute, std::string text) {
  for (size_t place; (place = text.find(attribute)) != text.npos;)
    text.erase(place, text.find('"', place + attribute.size()) + 1 - place);
  return text;
}

/// A host whose layout is in a folder of the check's own.
struct LayoutFolder {
  /// The module's layout without references between its elements, as the host refuses a layout
  /// that refers to a control that it lacks.
  std::string Original() const {
    return Without(" for=\"", Without(" focus=\"", ContentOf(Resources().plugin / kLayout)));
  }
  /// The original with each first text replaced by the second.
  void Write(const std::vector<std::pair<std::string, std::string>>& replacements) const {
    std::string text = Original();
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

/// Hands out the host's layouts with a hidden view, and notes what it is asked.
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
  /// Its dialog must release it before its sheet, and keep the sheet till then.
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

void OpensAsHostPlacesIt() {
  Caller caller;
  const Calls calls = caller.CallsDuring([&] {
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
  Calls asked = calls;
  std::erase(asked, "Sheet Holder/GetSheetView");  // as often as the module likes
  const std::string suite = "VX User Interface Main Suite";
  Expect("calls of the host", asked,
         Calls{"acquire/" + suite, suite + "/GetDrawingSupplierSource", "release/" + suite,
               "Drawing Supplier Source/GetDrawingSupplier", "acquire/" + suite,
               suite + "/GetSheetFactory", "release/" + suite, "Sheet Factory/CreateSheetHolder",
               "Sheet Holder/GetInitialFocus", "Sheet Holder/SetMessageCallback",
               "Sheet Holder/ResizeSheet", "Sheet Holder/GetLayoutNode",
               "Sheet Factory/RegisterDialogView", "Sheet Holder/GetSheet"});
}

void SharesLayoutWithHost() {
  Caller caller;
  WatchingFactory factory(caller.host);
  VXUserInterfaceMainSuite suite = *caller.host.Suites().Find<VXUserInterfaceMainSuite>();
  suite.GetSheetFactory = &WatchingFactory::Get;
  BasicSuite<1>::tables[VXUserInterfaceMainSuite::kName] = &suite;
  caller.module.basicSuite = &BasicSuite<1>::table;
  (void)caller.module.Send("VX Menu", "VX Go");
  caller.LookAt([&](const OpenDialog& open) {
    Expect("the layout is shown", open.Node("okButton").UI_IsVisible());
    Expect("the registered view", factory.registered,
           dynamic_cast<nrvui::ui::OS_View*>(open.dialog.GetRootView().get()));
  });
  Expect("the layout", factory.asked,
         "16301 of " + caller.module.Ref()->fileName + " in theme \"" +
             Utf8(nrvui::ui::GetDefaultThemeName()) + "\"");
}

void FollowsSizes() {
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

void BindsButtonsOfTheirClass() {
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

void NeedsEachControlInItsClass() {
  const LayoutFolder layout;
  Caller caller(layout.Folders());
  const auto expectAnswer = [&](ResultCode expected) {
    caller.record = SampleRecord();
    const CallerData given = caller.data;
    Expect("the answer", caller.Run([](const OpenDialog& open) { open.Confirm(); }), expected);
    if (expected != kSuccess) ExpectFields(caller.data, given);
  };
  layout.Write({});
  expectAnswer(kSuccess);
  const std::pair<const char*, std::vector<const char*>> kControls[] = {
      {"label", {"OrigWidthStatic", "OrigHeightStatic"}},
      {"number",
       {"NewWidthTxt", "NewHeightTxt", "HorizontalCountTxt", "VerticalCountTxt", "TileSpaceHorzTxt",
        "TileSpaceVertTxt"}},
      {"checkbox", {"UsePercentChk", "DeleteRasterChk"}},
      {"radio", {"HorizontalRadio", "VerticalRadio", "ColorRadio", "GrayRadio"}},
      {"text-button", {"MosaicUseRatioButton"}},
  };
  for (const auto& [element, controls] : kControls) {
    for (const std::string control : controls) {
      const Trying trying(control);
      layout.Write({{" id=\"" + control, " id=\"Other"}});
      expectAnswer(kCannot);
      const std::string begin = "<" + std::string(element) + " id=\"";
      layout.Write({{begin + control, "<row id=\"" + control + "\"/>" + begin + "Other"}});
      expectAnswer(kCannot);
    }
  }
  layout.Write({{"<text-button id=\"MosaicUse", "<button id=\"MosaicUse"}});
  expectAnswer(kCannot);
}

void ShowsSourceAsLengths() {
  Caller caller;
  caller.state.usePercent = 5;
  caller.record.deleteRaster = 9;
  caller.LookAt([](const OpenDialog& open) {
    Expect("the raster goes", open.Get<UI_Checkbox>("DeleteRasterChk").IsChecked());
    Expect("the source's height", open.Label("OrigHeightStatic"), "200 pt");
    Expect("the source's width", open.Label("OrigWidthStatic"), "300 pt");
    Expect("the new height", open.Text("NewHeightTxt"), "100 %");
  });
}

void KnowsNoSourceSize() {
  Caller caller;
  caller.record.sizeUnavailable = 2;
  const ResultCode code = caller.Run([](const OpenDialog& open) {
    Expect("the source's width", open.Label("OrigWidthStatic"), "N/A");
    Expect("the source's height", open.Label("OrigHeightStatic"), "N/A");
    open.Get("GrayRadio").SetDisabled(false);
    open.Click("GrayRadio");
    open.Get("UsePercentChk").SetDisabled(false);
    open.Click("UsePercentChk");
    Expect("the new width, since bounds do not count", open.Text("NewWidthTxt"), "100 pt");
    open.Confirm();
  });
  Expect("the answer", code, kSuccess);
  Expect("record.isColor, which has no handler", caller.record.isColor, 1);
  Expect("state.noOriginalSize", caller.state.noOriginalSize, 2);
}

void SpeaksUsersLanguage() {
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

void FollowsSettingOfMnemonics() {
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
  Expect("with a number for it", caller.Run([](const OpenDialog&) {}), kCannot);
  settings.SetSetting("windows.MnemonicsAlwaysOn", false);
  expectShown(false);
}

void WritesResultIfNotDestroyed() {
  class FailingWindow final : public nrvui::ui::NodeObserver {
   public:
    void NodeChanged(UI_Node&) override {}
    void NodeDestroyed(UI_Node&) override { throw std::runtime_error("window lost"); }
  } observer;
  Caller caller;
  const ResultCode code = caller.Run([&](const OpenDialog& open) {
    open.dialog.UI_SetObserver(&observer);
    open.Enter("HorizontalCountTxt", "9");
    open.Confirm();
  });
  Expect("the answer", code, kCannot);
  Expect("tiles across", caller.record.tilesAcross, 9);
  Expect("the ratio", caller.state.aspectRatio, 1.5f);
}

// An exception ends the run, and nothing is written.
void EndsWhenPresenterFails() {
  Caller caller;
  const FunctionPresenter presenter([](UI_Dialog& dialog) {
    dialog.DefaultCloseOk();
    throw std::runtime_error("window lost");
  });
  const CallerData given = caller.data;
  Expect("the answer", caller.RunDialog(caller.record, caller.state), kCannot);
  ExpectFields(caller.data, given);
  Expect("modal contexts", vx::ui::ModalContext::Depth(), 0);
}

void RefusesBadCalls() {
  Caller caller;
  const auto run = caller.host.Suites().Find<MosaicSuite>()->RunMosaicDialog;
  MosaicParameters* params = &caller.record;
  MosaicParameters* none = nullptr;
  caller.ExpectNoDialog("without a state", run, nullptr, &params);
  caller.ExpectNoDialog("without an address", run, &caller.state, nullptr);
  caller.ExpectNoDialog("without a record", run, &caller.state, &none);
  Expect("the unload", caller.module.Send("QP Access", "Unload"), kSuccess);
  caller.ExpectNoDialog("after an unload", run, &caller.state, &params);
  Expect("the reload", caller.module.Send("QP Access", "Reload"), kSuccess);
  Expect("the shut-down", caller.module.ShutDown(), kSuccess);
  caller.ExpectNoDialog("after a shut-down", run, &caller.state, &params);
}

void WritesToRecordOfTheMoment() {
  Caller caller;
  const CallerData given = caller.data;
  MosaicParameters moved{};
  MosaicParameters* params = &caller.record;
  const FunctionPresenter presenter([&](UI_Dialog& dialog) {
    params = &moved;
    dialog.OnReturnKey();
  });
  const auto* const suite = caller.host.Suites().Find<MosaicSuite>();
  Expect("the answer", suite->RunMosaicDialog(&caller.state, &params), kSuccess);
  Expect("the record's address", params, &moved);
  Expect("tiles across", moved.tilesAcross, 30);
  ExpectFields({caller.record, given.state}, given);
}

// The dialog works on copies until it has closed.
void WritesNothingWhileOpen() {
  Caller caller;
  const CallerData given = caller.data;
  MosaicParameters* params = &caller.record;
  const FunctionPresenter presenter([&](UI_Dialog& dialog) {
    const OpenDialog open{dialog};
    for (const char* control : {"GrayRadio", "UsePercentChk", "DeleteRasterChk"})
      open.Click(control);
    open.Confirm();
    ExpectFields(caller.data, given);
  });
  const auto* const suite = caller.host.Suites().Find<MosaicSuite>();
  Expect("the answer", suite->RunMosaicDialog(&caller.state, &params), kSuccess);
  Expect("record.isColor", caller.record.isColor, 0);
}

// Without an answer of the host's, a field keeps its value; the other is set all the same.
void ComputesRatioThroughHost() {
  struct {
    const char* refused;
    size_t call;
    int32_t tilesDown;
    float newHeight;
  } const cases[] = {{"VX Real Math Suite/Divide", 1, 20, 200},
                     {"VX Real Math Suite/Multiply", 1, 20, 8},
                     {"VX Real Math Suite/Multiply", 2, 8, 200}};
  Caller caller;
  for (const auto& [refused, call, tilesDown, newHeight] : cases) {
    const Trying trying(std::string(refused) + ", call " + std::to_string(call));
    caller.record = SampleRecord();
    caller.host.Operations().Refuse(refused, kCannot, call);
    Expect("the answer", caller.Run(UseRatio), kSuccess);
    Expect("tiles down", caller.record.tilesDown, tilesDown);
    Expect("the new height", caller.record.newHeight, newHeight);
  }
  Expect("the unload", caller.module.Send("QP Access", "Unload"), kSuccess);
  caller.host.Operations().Refuse("acquire/QP Access Suite", kRefused);
  Expect("the reload", caller.module.Send("QP Access", "Reload"), kRefused);
  Expect("the answer, with the suite borrowed", caller.Run(UseRatio), kSuccess);
  Expect("tiles down", caller.record.tilesDown, 8);
  Expect("the new height", caller.record.newHeight, 8.0f);
}

// Code may give a field any value.
void ReadsFieldsAsWholeNumbers() {
  Caller caller;
  const ResultCode code = caller.Run([](const OpenDialog& open) {
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
    open.Confirm();
  });
  Expect("the answer", code, kSuccess);
  Expect("record.tileSpacingHorizontal", caller.record.tileSpacingHorizontal, 2);
  Expect("record.tileSpacingVertical", caller.record.tileSpacingVertical, -2);
  Expect("record.tilesAcross", caller.record.tilesAcross, 65546);
  Expect("record.tilesDown", caller.record.tilesDown, 70000);
  Expect("record.newWidth", caller.record.newWidth, -7.9f);
}

void UsesFirstControlOfExactId() {
  Caller caller;
  const ResultCode code = caller.Run([](const OpenDialog& open) {
    const auto& former = open.Get<UI_UnitNumberEdit>("VerticalCountTxt");
    std::vector<boost::intrusive_ptr<UI_UnitNumberEdit>> fields;
    // Nearer to the root than the layout's own; of two at one depth, the first counts.
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
    // The root itself comes first, and the dialog is not searched.
    open.dialog.UI_SetNodeID("okButton");
    open.Confirm();
  });
  Expect("the answer", code, kSuccess);
  Expect("tiles down", caller.record.tilesDown, 8);
  const FunctionPresenter presenter([](UI_Dialog& dialog) {
    dialog.GetRootView()->UI_SetNodeID("VerticalCountTxt");
    OpenDialog{dialog}.Confirm();
  });
  Expect("the answer where the root has the ID of a field", caller.RunSampleDialog(), kCannot);
}

}  // namespace

void AddDialogChecks(const Add& add) {
  add("dialog/opens-as-host-places-it", OpensAsHostPlacesIt);
  add("dialog/shares-layout-with-host", SharesLayoutWithHost);
  add("dialog/follows-sizes", FollowsSizes);
  add("dialog/binds-buttons-of-their-class", BindsButtonsOfTheirClass);
  add("dialog/needs-each-control-in-its-class", NeedsEachControlInItsClass);
  add("dialog/shows-source-as-lengths", ShowsSourceAsLengths);
  add("dialog/knows-no-source-size", KnowsNoSourceSize);
  add("dialog/speaks-users-language", SpeaksUsersLanguage);
  add("dialog/follows-setting-of-mnemonics", FollowsSettingOfMnemonics);
  add("dialog/writes-result-if-not-destroyed", WritesResultIfNotDestroyed);
  add("dialog/ends-when-presenter-fails", EndsWhenPresenterFails);
  add("dialog/refuses-bad-calls", RefusesBadCalls);
  add("dialog/writes-to-record-of-the-moment", WritesToRecordOfTheMoment);
  add("dialog/writes-nothing-while-open", WritesNothingWhileOpen);
  add("dialog/computes-ratio-through-host", ComputesRatioThroughHost);
  add("dialog/reads-fields-as-whole-numbers", ReadsFieldsAsWholeNumbers);
  add("dialog/uses-first-control-of-exact-id", UsesFirstControlOfExactId);
}

}  // namespace check
