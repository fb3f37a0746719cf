#include <stdexcept>

#include "check/checked_module.h"
#include "check/function_presenter.h"
#include "check/open_dialog.h"
#include "check/random.h"
#include "check/temporary_folder.h"
#include "platform/nrvui/ui_node_manager.h"
#include "platform/standin/sheet_service.h"
#include "platform/vxui/modal_context.h"

namespace check {
namespace {

using nrvui::controls::UI_Checkbox;
using nrvui::controls::UI_UnitNumberEdit;
using nrvui::ui::UI_Dialog;
using nrvui::ui::UI_Node;

/// A running module with a caller who asks for the dialog.
struct Caller : RunningModule {
  using RunningModule::RunningModule;
  using Person = std::function<void(const OpenDialog& open)>;

  /// Calls the suite's function; `person` acts on the open dialog.
  ResultCode Run(const Person& person) {
    const FunctionPresenter presenter([&](UI_Dialog& dialog) {
      // The module answers an exception as if it came from its host, so it is noted here.
      try {
        person({dialog});
      } catch (const std::exception& error) {
        Fail(error.what());
      }
    });
    return RunDialog(record, state);
  }
  /// The same for a person who cancels in the end.
  void LookAt(const Person& person) { Expect("the answer", Run(person), kCancelled); }

  MosaicParameters record = SampleRecord();
  MosaicDialogState state{};
};

std::vector<float> Pair(const auto& point) {
  return {point.x, point.y};
}

void UseRatio(const OpenDialog& open) {
  open.Enter("HorizontalCountTxt", "12");
  open.Enter("NewWidthTxt", "12");
  open.Click("MosaicUseRatioButton");
  open.Confirm();
}

std::string Without(const std::string& attribute, std::string text) {
  for (size_t place; (place = text.find(attribute)) != text.npos;)
    text.erase(place, text.find('"', place + attribute.size()) + 1 - place);
  return text;
}

}  // namespace

void AddDialogChecks(const Add& add) {
  add("dialog/opens-as-host-places-it", [] {
    Caller caller;
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
      Expect("the focus", dialog.GetInitialFocus().get() == &open.Node("NewWidthTxt"));
      Expect("the OK button", dialog.GetOkButton().get() == &open.Node("okButton"));
      Expect("the Cancel button", dialog.GetCancelButton().get() == &open.Node("cancelButton"));
      Expect("Cancel stands before OK",
             open.Node("cancelButton").UI_GetIndex() < open.Node("okButton").UI_GetIndex());
    });
    Expect("modal contexts afterwards", vx::ui::ModalContext::Depth(), 0);
  });

  add("dialog/follows-sizes", [] {
    Caller caller;
    caller.LookAt([](const OpenDialog& open) {
      const auto& root = open.dialog.GetRootView();
      UI_Node& view = **root->ChildBegin();
      UI_Node& layout = **view.ChildBegin();
      const auto expectSize = [](const char* what, const nrvcore::geom::RectT<float>& rect,
                                 float width, float height) {
        Expect(what, std::vector{rect.right, rect.bottom}, std::vector{width, height});
      };
      (void)nrvui::gestures::Resize(open.dialog, {600, 500});
      expectSize("the root view", root->UI_GetLocalRectF(), 600, 500);
      expectSize("the layout", layout.UI_GetLocalRectF(), 600, 500);
      layout.UI_SetLocalRectF({0, 0, 700, 450});
      expectSize("the sheet's view", view.UI_GetLocalRectF(), 700, 450);
      expectSize("the dialog", open.dialog.UI_GetLocalRectF(), 700, 450);
      Expect("the least size", Pair(open.dialog.GetMinimumSize()), std::vector{700.0f, 450.0f});
    });
  });

  add("dialog/shows-source-as-lengths", [] {
    Caller caller;
    caller.state.usePercent = 5;
    caller.record.deleteRaster = 9;
    caller.LookAt([](const OpenDialog& open) {
      Expect("the raster goes", open.Get<UI_Checkbox>("DeleteRasterChk").IsChecked());
      Expect("the source's height", open.Label("OrigHeightStatic"), "200 pt");
      Expect("the source's width", open.Label("OrigWidthStatic"), "300 pt");
      Expect("the new height", open.Text("NewHeightTxt"), "100 %");
    });
  });

  add("dialog/knows-no-source-size", [] {
    Caller caller;
    caller.record.sizeUnavailable = 2;
    const ResultCode code = caller.Run([](const OpenDialog& open) {
      Expect("the source's width", open.Label("OrigWidthStatic"), "N/A");
      Expect("the source's height", open.Label("OrigHeightStatic"), "N/A");
      open.Get("GrayRadio").SetDisabled(false);
      open.Click("GrayRadio");
      open.Get("UsePercentChk").SetDisabled(false);
      open.Click("UsePercentChk");
      Expect("the new width, since bounds are not to be relied on", open.Text("NewWidthTxt"),
             "100 pt");
      open.Confirm();
    });
    Expect("the answer", code, kSuccess);
    Expect("colour, as nobody listens to its choice", caller.record.isColor, 1);
  });

  add("dialog/follows-setting-of-mnemonics", [] {
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
  });

  add("dialog/writes-result-if-not-destroyed", [] {
    class FailingWindow final : public nrvui::ui::NodeObserver {
     public:
      void NodeChanged(nrvui::ui::UI_Node&) override {}
      void NodeDestroyed(nrvui::ui::UI_Node&) override { throw std::runtime_error("window lost"); }
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
  });

  // An exception ends the run, and nothing is written.
  add("dialog/ends-when-presenter-fails", [] {
    Caller caller;
    const FunctionPresenter presenter([](UI_Dialog& dialog) {
      dialog.DefaultCloseOk();
      throw std::runtime_error("window lost");
    });
    const std::string given = Bytes(caller.record) + Bytes(caller.state);
    Expect("the answer", caller.RunDialog(caller.record, caller.state), kCannot);
    ExpectBytes("record and state", Bytes(caller.record) + Bytes(caller.state), given);
    Expect("modal contexts", vx::ui::ModalContext::Depth(), 0);
  });

  add("dialog/refuses-bad-calls", [] {
    Caller caller;
    const auto run = caller.host.Suites().Find<MosaicSuite>()->RunMosaicDialog;
    MosaicParameters* params = &caller.record;
    MosaicParameters* none = nullptr;
    const FunctionPresenter presenter([](UI_Dialog&) { Fail("a dialog is shown"); });
    Expect("without a state", run(nullptr, &params), kCannot);
    Expect("without an address", run(&caller.state, nullptr), kCannot);
    Expect("without a record", run(&caller.state, &none), kCannot);
    Expect("the unload", caller.module.Send("QP Access", "Unload"), kSuccess);
    Expect("after an unload", run(&caller.state, &params), kCannot);
    Expect("the shut-down", caller.module.ShutDown(), kSuccess);
    Expect("after a shut-down", run(&caller.state, &params), kCannot);
  });

  add("dialog/computes-ratio-through-host", [] {
    Caller caller;
    // A refused result leaves its own field as it was.
    const struct {
      const char* refused;
      unsigned call;
      int tilesDown;
      float newHeight;
    } cases[] = {{"VX Real Math Suite/Divide", 1, 20, 200.0f},
                 {"VX Real Math Suite/Multiply", 1, 20, 8.0f},
                 {"VX Real Math Suite/Multiply", 2, 8, 200.0f}};
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
  });

  add("dialog/uses-controls-of-the-moment", [] {
    Caller caller;
    const ResultCode code = caller.Run([](const OpenDialog& open) {
      const auto& former = open.Get<UI_UnitNumberEdit>("VerticalCountTxt");
      const boost::intrusive_ptr<UI_UnitNumberEdit> field(new UI_UnitNumberEdit);
      field->UI_SetNodeID("VerticalCountTxt");
      open.dialog.GetRootView()->ChildPushBack(field);  // nearer to the root, so it is found first
      open.Enter("HorizontalCountTxt", "12");
      open.Click("MosaicUseRatioButton");
      Expect("the new field", field->GetNumber(), 8);
      Expect("the former field", former.GetNumber(), 20);
      open.Confirm();
    });
    Expect("the answer", code, kSuccess);
    Expect("tiles down", caller.record.tilesDown, 8);
  });

  add("dialog/writes-to-record-of-the-moment", [] {
    Caller caller;
    const std::string given = Bytes(caller.record);
    MosaicParameters moved{};
    MosaicParameters* params = &caller.record;
    const FunctionPresenter presenter([&](UI_Dialog& dialog) {
      params = &moved;
      dialog.OnReturnKey();
    });
    const auto* const suite = caller.host.Suites().Find<MosaicSuite>();
    Expect("the answer", suite->RunMosaicDialog(&caller.state, &params), kSuccess);
    Expect("the record's address stays", params == &moved);
    Expect("tiles across", moved.tilesAcross, 30);
    ExpectBytes("the former record's bytes", Bytes(caller.record), given);
  });

  add("dialog/needs-each-control-in-its-class", [] {
    const char* const kLayout = "layouts/16301.xml";
    const std::string original = ContentOf(Resources().plugin / kLayout);
    // The host refuses a layout that refers to a control that it lacks, before the module sees it.
    const std::string layout = Without(" for=\"", Without(" focus=\"", original));
    const TemporaryFolder resources;
    Caller caller({resources.path, resources.path});
    std::vector<std::pair<std::string, std::string>> cases = {
        {"<text-button id=\"MosaicUse", "<button id=\"MosaicUse"}};
    for (const std::string control :
         {"OrigWidthStatic", "OrigHeightStatic", "NewWidthTxt", "NewHeightTxt", "UsePercentChk",
          "HorizontalCountTxt", "VerticalCountTxt", "TileSpaceHorzTxt", "TileSpaceVertTxt",
          "HorizontalRadio", "VerticalRadio", "ColorRadio", "GrayRadio", "DeleteRasterChk",
          "MosaicUseRatioButton"})
      cases.push_back({" id=\"" + control, " id=\"Other"});
    const auto expectAnswer = [&](const std::string& text, ResultCode expected) {
      resources.Write(kLayout, text);
      caller.record = SampleRecord();
      Expect("the answer", caller.Run([](const OpenDialog& open) { open.Confirm(); }), expected);
    };
    expectAnswer(layout, kSuccess);
    for (const auto& [element, replacement] : cases) {
      const Trying trying(element);
      std::string text = layout;
      const size_t place = text.find(element);
      if (place == text.npos) return Fail("the host's layout has no such element");
      expectAnswer(text.replace(place, element.size(), replacement), kCannot);
    }
  });
}

}  // namespace check
