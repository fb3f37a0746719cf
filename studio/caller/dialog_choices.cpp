#include "studio/caller/dialog_choices.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <string>

#include "platform/nrvui/ui_controls.h"
#include "platform/nrvui/ui_edits.h"
#include "platform/nrvui/ui_node.h"
#include "studio/base/studio_error.h"

using nrvui::controls::UI_Checkbox;
using nrvui::controls::UI_NumberEdit;
using nrvui::controls::UI_RadioButton;
using nrvui::controls::UI_UnitNumberEdit;
using nrvui::ui::UI_Node;

namespace {

constexpr int kFirstTilesAcross = 100;
constexpr int kMostTilesEntered = 8640;  // the upper bound of user input

constexpr const char* kTilesAcross = "HorizontalCountTxt";
constexpr const char* kTilesDown = "VerticalCountTxt";

MosaicChoices FirstChoices() {
  MosaicChoices choices;
  choices.params.tilesAcross = kFirstTilesAcross;
  choices.params.isColor = 1;
  choices.params.deleteRaster = 1;
  choices.params.keepHorizontal = 1;
  return choices;
}

/// The controls of a dialog by ID, with the number that is being typed into one of them.
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

/// The number of a spacing field as OK would read it: entering a number of tiles clamps both
/// spacings.
float Spacing(const Controls& controls, const char* spacingId, const char* tilesId) {
  const float spacing = controls.Number(spacingId);
  if (!controls.ChangesTiles()) return spacing;
  return std::min(spacing, std::max(controls.Number(tilesId) - 2, 0.0F));
}

/// Cuts off a number's fraction; `cuts` becomes true if it has one.
int32_t Whole(float number, bool& cuts) {
  const auto whole = int32_t(number);
  cuts |= float(whole) != number;
  return whole;
}

}  // namespace

MosaicChoices ChoicesFor(const Artwork& artwork, const std::optional<MosaicChoices>& last,
                         const std::optional<MosaicChoices>& former) {
  const QSizeF size = artwork.picture.SizeInPoints();
  MosaicChoices choices = former ? *former : last ? *last : FirstChoices();
  MosaicParameters& params = choices.params;
  if (!former) {
    const double down = params.tilesAcross * size.height() / size.width();
    params.tilesDown = int(std::lround(std::clamp(down, 1.0, double(kMostTilesEntered))));
  }
  params.sizeUnavailable = !artwork.isSizeKnown;
  params.boundsRight = artwork.isSizeKnown ? int(std::lround(size.width())) : 0;
  params.boundsBottom = artwork.isSizeKnown ? int(std::lround(size.height())) : 0;
  return choices;
}

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
