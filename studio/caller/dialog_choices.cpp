#include "studio/caller/dialog_choices.h"

#include <map>
#include <string>

#include "platform/nrvui/ui_controls.h"
#include "platform/nrvui/ui_edits.h"
#include "platform/nrvui/ui_node.h"
#include "studio/base/studio_error.h"

using nrvui::controls::UI_Checkbox;
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
