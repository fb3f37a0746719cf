#include "studio/caller/dialog_choices.h"

#include <QLocale>
#include <QStringList>

#include "platform/nrvui/gesture.h"
#include "platform/nrvui/ui_controls.h"
#include "platform/nrvui/ui_edits.h"
#include "platform/nrvui/ui_node.h"
#include "studio/base/studio_error.h"

using nrvui::controls::UI_Checkbox;
using nrvui::controls::UI_ControlView;
using nrvui::controls::UI_NumberEdit;
using nrvui::controls::UI_RadioButton;
using nrvui::controls::UI_UnitNumberEdit;
using nrvui::ui::UI_Node;

namespace {

/// The controls of a dialog by their IDs.
class Controls {
 public:
  explicit Controls(const nrvui::ui::UI_Dialog& dialog) {
    nrvui::ui::ForEachBelow<UI_Node>(
        dialog, [this](UI_Node& node) { nodes.emplace(node.UI_GetNodeID().View(), &node); });
  }

  float Number(const char* id) const { return float(Get<UI_UnitNumberEdit>(id).GetNumber()); }
  int32_t WholeNumber(const char* id) const { return int32_t(Number(id)); }
  bool IsChecked(const char* id) const { return Get<UI_Checkbox>(id).IsChecked(); }
  bool IsSelected(const char* id) const {
    return Get<UI_RadioButton>(id).GetValue() == nrvui::controls::kRadioOn;
  }

 private:
  template <typename Control>
  const Control& Get(const char* id) const {
    const auto found = nodes.find(id);
    const auto* const control =
        found == nodes.end() ? nullptr : dynamic_cast<const Control*>(found->second);
    if (!control) {
      throw StudioError("$$$/Studio/Module/NoControl=the dialog has no usable control %1",
                        QString(id));
    }
    return *control;
  }

  std::map<std::string, const UI_Node*, std::less<>> nodes;
};

}  // namespace

MosaicChoices ChoicesOnOk(const nrvui::ui::UI_Dialog& dialog, const MosaicChoices& asked) {
  const Controls controls(dialog);
  MosaicChoices choices = asked;
  MosaicParameters& params = choices.params;
  MosaicDialogState& state = choices.state;

  state.noOriginalSize = params.sizeUnavailable;
  state.usePercent = controls.IsChecked("UsePercentChk");
  state.reserved6 = 0;
  const float height = int16_t(params.boundsBottom - params.boundsTop);
  const bool hasRatio = !params.sizeUnavailable && height != 0;
  state.aspectRatio = hasRatio ? float(params.boundsRight - params.boundsLeft) / height : 1;

  params.isColor = controls.IsSelected("ColorRadio");
  params.keepHorizontal = controls.IsSelected("HorizontalRadio");
  params.deleteRaster = controls.IsChecked("DeleteRasterChk");
  const float whole = state.usePercent ? 100 : 1;
  params.newWidth = controls.Number("NewWidthTxt") / whole;
  params.newHeight = controls.Number("NewHeightTxt") / whole;
  params.tileSpacingHorizontal = controls.WholeNumber("TileSpaceHorzTxt");
  params.tileSpacingVertical = controls.WholeNumber("TileSpaceVertTxt");
  params.tilesAcross = params.tilesAcrossCopy = controls.WholeNumber("HorizontalCountTxt");
  params.tilesDown = params.tilesDownCopy = controls.WholeNumber("VerticalCountTxt");
  params.reserved28 = params.reserved32 = params.reserved60 = params.reserved64 = 0;
  return choices;
}

DialogEntries EntriesIn(const nrvui::ui::UI_Dialog& dialog) {
  DialogEntries entries;
  const auto note = [&](const UI_Node& node, double value) {
    entries.emplace(node.UI_GetNodeID().View(), value);
  };
  ForEachBelow<UI_Checkbox>(dialog, [&](UI_Checkbox& box) { note(box, box.IsChecked()); });
  ForEachBelow<UI_RadioButton>(dialog, [&](UI_RadioButton& radio) {
    note(radio, radio.GetValue() == nrvui::controls::kRadioOn);
  });
  ForEachBelow<UI_NumberEdit>(dialog,
                              [&](UI_NumberEdit& field) { note(field, field.GetNumber()); });
  return entries;
}

void FocusFirst(nrvui::ui::UI_Dialog& dialog, const std::string& id) {
  nrvui::ui::ForEachBelow<UI_Node>(dialog, [&](UI_Node& node) {
    if (node.UI_GetNodeID().View() == id) dialog.SetInitialFocus(&node);
  });
}

QString EnterAgain(nrvui::ui::UI_Dialog& dialog, const DialogEntries& entries) {
  QStringList changes;
  const auto note = [&](const nrvui::gestures::Outcome& outcome) {
    if (const auto text = Describe(outcome); !text.IsEmpty()) changes += FromToolkit(text);
  };
  const DialogEntries first = EntriesIn(dialog);
  ForEachBelow<UI_ControlView>(dialog, [&](UI_ControlView& control) {
    const std::string id(control.UI_GetNodeID().View());
    const auto wanted = entries.find(id);
    const bool isField = dynamic_cast<UI_NumberEdit*>(&control) != nullptr;
    if (wanted == entries.end() || isField || first.at(id) == wanted->second) return;
    // A radio button goes off when another one of its group is clicked.
    if (dynamic_cast<UI_RadioButton*>(&control) && wanted->second == 0) return;
    note(nrvui::gestures::Click(dialog, control));
  });
  const QChar sign(nrvcore::config::Localizer::Get().GetDecimalSign());
  ForEachBelow<UI_NumberEdit>(dialog, [&](UI_NumberEdit& field) {
    const auto wanted = entries.find(std::string(field.UI_GetNodeID().View()));
    if (wanted == entries.end() || field.GetNumber() == wanted->second) return;
    QString text = QString::number(wanted->second, 'g', QLocale::FloatingPointShortest);
    text.replace('.', sign);
    note(nrvui::gestures::Enter(dialog, field, ToToolkit(text)));
  });
  return changes.join(' ');
}
