#include <cmath>

#include "host/suites.h"
#include "mosaic/short_arithmetic.h"
#include "mosaic/tesserae_ui_dialog.h"
#include "platform/nrvui/ui_checkbox.h"
#include "platform/nrvui/ui_radio_button.h"
#include "platform/nrvui/ui_text_button.h"
#include "platform/nrvui/ui_unit_number_edit.h"

using nrvui::controls::UI_Checkbox;
using nrvui::controls::UI_RadioButton;
using nrvui::controls::UI_TextButton;
using nrvui::controls::UI_UnitNumberEdit;
using nrvui::ui::UI_ControlChangedMessage;

namespace {

constexpr double kGreatestPercentage = 100.0;
constexpr double kGreatestLength = 8640.0;
constexpr double kWhole = 100.0;

}  // namespace

void TesseraeUIDialog::ConnectControls() {
  const bool noSize = state.noOriginalSize != 0;
  InstallChangeHandler("MosaicUseRatioButton", &TesseraeUIDialog::OnUseRatioButton);
  Control<UI_TextButton>("MosaicUseRatioButton")->SetDisabled(noSize);
  for (const char* radio : {"HorizontalRadio", "VerticalRadio", "ColorRadio", "GrayRadio"}) {
    Control<UI_RadioButton>(radio)->SetDisabled(noSize);
  }
  if (!noSize) {
    InstallChangeHandler("HorizontalRadio", &TesseraeUIDialog::OnHorizontalRadio);
    InstallChangeHandler("VerticalRadio", &TesseraeUIDialog::OnVerticalRadio);
    InstallChangeHandler("ColorRadio", &TesseraeUIDialog::OnColorRadio);
    InstallChangeHandler("GrayRadio", &TesseraeUIDialog::OnGrayRadio);
  }
  const auto usePercent = Control<UI_Checkbox>("UsePercentChk");
  usePercent->SetChecked(state.usePercent != 0);
  usePercent->SetDisabled(noSize);
  InstallChangeHandler("UsePercentChk", &TesseraeUIDialog::OnUsePercentChanged);
  InstallChangeHandler("DeleteRasterChk", &TesseraeUIDialog::OnDeleteRasterChanged);
  InstallChangeHandler("HorizontalCountTxt", &TesseraeUIDialog::OnTileCountChanged);
  InstallChangeHandler("VerticalCountTxt", &TesseraeUIDialog::OnTileCountChanged);
}

void TesseraeUIDialog::ResetNewSize() {
  const auto width = SetUpSizeField("NewWidthTxt");
  const auto height = SetUpSizeField("NewHeightTxt");
  const bool whole = state.usePercent || state.noOriginalSize;
  width->SetNumber(whole ? kWhole : LowShort(SourceWidth()));
  height->SetNumber(whole ? kWhole : SourceHeight());
  state.aspectRatio = SourceAspectRatio();
}

boost::intrusive_ptr<UI_UnitNumberEdit> TesseraeUIDialog::SetUpSizeField(const char* nodeID) {
  auto field = Control<UI_UnitNumberEdit>(nodeID);
  field->SetCustomUnit(state.usePercent ? UI_UnitNumberEdit::kPercentUnit
                                        : UI_UnitNumberEdit::kLengthUnit);
  field->SetLowerBound(0.0);
  field->SetUpperBound(state.usePercent ? kGreatestPercentage : kGreatestLength);
  return field;
}

int32_t TesseraeUIDialog::SourceWidth() const {
  return WrappingDifference(parameters.boundsRight, parameters.boundsLeft);
}

int16_t TesseraeUIDialog::SourceHeight() const {
  return LowShort(WrappingDifference(parameters.boundsBottom, parameters.boundsTop));
}

float TesseraeUIDialog::SourceAspectRatio() const {
  const float height = SourceHeight();
  if (state.noOriginalSize || height == 0.0f) return 1.0f;
  return static_cast<float>(SourceWidth()) / height;
}

void TesseraeUIDialog::OnUsePercentChanged(UI_ControlChangedMessage*) {
  state.usePercent = Control<UI_Checkbox>("UsePercentChk")->IsChecked();
  ResetNewSize();
}

void TesseraeUIDialog::OnUseRatioButton(UI_ControlChangedMessage*) {
  // After a reload that failed, the dialog can be asked for although the module holds no suites.
  const ScopedSuite<VXRealMathSuite> math;
  if (!math) return;
  const bool keepHorizontal = parameters.keepHorizontal != 0;
  int16_t fixedCount = 0;
  GetControlShort(keepHorizontal ? "HorizontalCountTxt" : "VerticalCountTxt", fixedCount);
  const float factor = keepHorizontal ? math->Divide(1.0f, state.aspectRatio) : state.aspectRatio;
  const float count = math->Multiply(fixedCount, factor);
  int16_t fixedSize = 0;
  GetControlShort(keepHorizontal ? "NewWidthTxt" : "NewHeightTxt", fixedSize);
  const float size = math->Multiply(fixedSize, factor);

  // Both results first: without a width there is no ratio by which a height could follow, and where
  // the host refuses there is no number; then neither field changes.
  if (!std::isfinite(factor) || std::isnan(count) || std::isnan(size)) return;
  SetControlNumber(keepHorizontal ? "VerticalCountTxt" : "HorizontalCountTxt", RoundToShort(count));
  SetControlNumber(keepHorizontal ? "NewHeightTxt" : "NewWidthTxt", RoundToShort(size));
}
