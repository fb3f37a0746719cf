#include "studio/caller/dialog_choices.h"

#include <QLocale>
#include <QStringList>
#include <algorithm>

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

constexpr const char* kTilesAcross = "HorizontalCountTxt";
constexpr const char* kTilesDown = "VerticalCountTxt";

/// The controls of a dialog by their IDs, with the number that is being typed into one.
class Controls {
 public:
  Controls(const nrvui::ui::UI_Dialog& dialog,
           const std::optional<qtui::PendingEntry>& pendingEntry)
      : pending(pendingEntry) {
    nrvui::ui::ForEachBelow<UI_Node>(
        dialog, [this](UI_Node& node) { nodes.emplace(node.UI_GetNodeID().View(), &node); });
  }

  float Number(const char* id) const {
    const auto& field = Get<UI_UnitNumberEdit>(id);
    return float(IsPending(field) ? pending->number : field.GetNumber());
  }
  /// Whether the number of tiles changes when the pending entry is entered.
  bool ChangesTiles() const {
    return pending && pending->number != pending->field->GetNumber() &&
           (IsPending(Get<UI_UnitNumberEdit>(kTilesAcross)) ||
            IsPending(Get<UI_UnitNumberEdit>(kTilesDown)));
  }
  bool IsChecked(const char* id) const { return Get<UI_Checkbox>(id).IsChecked(); }
  bool IsSelected(const char* id) const {
    return Get<UI_RadioButton>(id).GetValue() == nrvui::controls::kRadioOn;
  }

 private:
  bool IsPending(const UI_NumberEdit& field) const { return pending && pending->field == &field; }

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
  const std::optional<qtui::PendingEntry>& pending;
};

/// A spacing field when OK reads it. Entering a number of tiles limits both.
float Spacing(const Controls& controls, const char* spacingId, const char* tilesId) {
  const float spacing = controls.Number(spacingId);
  if (!controls.ChangesTiles()) return spacing;
  return std::min(spacing, std::max(controls.Number(tilesId) - 2, 0.0F));
}

/// The whole number in a field's number; `cuts` becomes true when that leaves a fraction out.
int32_t Whole(float number, bool& cuts) {
  const auto whole = int32_t(number);
  cuts |= float(whole) != number;
  return whole;
}

}  // namespace

Forecast ForecastFor(const nrvui::ui::UI_Dialog& dialog, const MosaicChoices& asked,
                     const std::optional<qtui::PendingEntry>& pending) {
  const Controls controls(dialog, pending);
  Forecast forecast{asked};
  MosaicParameters& params = forecast.choices.params;
  MosaicDialogState& state = forecast.choices.state;

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
  params.tileSpacingHorizontal =
      Whole(Spacing(controls, "TileSpaceHorzTxt", kTilesAcross), forecast.cutsSpaces);
  params.tileSpacingVertical =
      Whole(Spacing(controls, "TileSpaceVertTxt", kTilesDown), forecast.cutsSpaces);
  params.tilesAcross = params.tilesAcrossCopy =
      Whole(controls.Number(kTilesAcross), forecast.cutsTiles);
  params.tilesDown = params.tilesDownCopy = Whole(controls.Number(kTilesDown), forecast.cutsTiles);
  params.reserved28 = params.reserved32 = params.reserved60 = params.reserved64 = 0;
  return forecast;
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
