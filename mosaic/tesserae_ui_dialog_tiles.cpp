#include <algorithm>

#include "mosaic/short_arithmetic.h"
#include "mosaic/tesserae_ui_dialog.h"
#include "platform/nrvui/ui_checkbox.h"
#include "platform/nrvui/ui_radio_button.h"
#include "platform/nrvui/ui_unit_number_edit.h"

using nrvui::controls::UI_Checkbox;
using nrvui::controls::UI_RadioButton;
using nrvui::controls::UI_UnitNumberEdit;
using nrvui::ui::UI_ControlChangedMessage;

namespace {

constexpr double kLeastCount = 1.0;
constexpr double kGreatestCount = 8640.0;

// The greatest spacing, in points, is the number of tiles less this, number for number; callers
// depend on it.
constexpr float kTilesWithoutSpacing = 2.0f;

}  // namespace

void TesseraeUIDialog::SetUpCountField(const char* nodeID, int32_t count) {
  const auto field = Control<UI_UnitNumberEdit>(nodeID);
  field->SetLowerBound(kLeastCount);
  field->SetUpperBound(kGreatestCount);
  field->SetNumber(LowShort(count));
}

void TesseraeUIDialog::SetUpSpacingField(const char* nodeID) {
  const auto field = Control<UI_UnitNumberEdit>(nodeID);
  field->SetCustomUnit(UI_UnitNumberEdit::kLengthUnit);
  field->SetLowerBound(0.0);
}

void TesseraeUIDialog::ClampTileSpacing() {
  ClampSpacing("HorizontalCountTxt", "TileSpaceHorzTxt");
  ClampSpacing("VerticalCountTxt", "TileSpaceVertTxt");
}

void TesseraeUIDialog::ClampSpacing(const char* countID, const char* spacingID) {
  // One tile would give less than none.
  const float greatest = std::max(0.0f, GetControlFloat(countID) - kTilesWithoutSpacing);
  const auto field = Control<UI_UnitNumberEdit>(spacingID);
  const float spacing = static_cast<float>(field->GetNumber());
  field->SetUpperBound(greatest);
  if (spacing > greatest) field->SetNumber(greatest);
}

void TesseraeUIDialog::UpdateRadioButtons() {
  const auto select = [this](const char* nodeID, bool selected) {
    Control<UI_RadioButton>(nodeID)->SetValue(selected ? nrvui::controls::kRadioOn
                                                       : nrvui::controls::kRadioOff);
  };
  select("HorizontalRadio", parameters.keepHorizontal != 0);
  select("VerticalRadio", parameters.keepHorizontal == 0);
  select("ColorRadio", parameters.isColor != 0);
  select("GrayRadio", parameters.isColor == 0);
}

void TesseraeUIDialog::OnTileCountChanged(UI_ControlChangedMessage*) {
  ClampTileSpacing();
}

void TesseraeUIDialog::OnDeleteRasterChanged(UI_ControlChangedMessage*) {
  parameters.deleteRaster = Control<UI_Checkbox>("DeleteRasterChk")->IsChecked();
}

void TesseraeUIDialog::OnHorizontalRadio(UI_ControlChangedMessage*) {
  parameters.keepHorizontal = 1;
}

void TesseraeUIDialog::OnVerticalRadio(UI_ControlChangedMessage*) {
  parameters.keepHorizontal = 0;
}

void TesseraeUIDialog::OnColorRadio(UI_ControlChangedMessage*) {
  parameters.isColor = 1;
}

void TesseraeUIDialog::OnGrayRadio(UI_ControlChangedMessage*) {
  parameters.isColor = 0;
}
