#include "mosaic/tesserae_ui_dialog.h"

#include <algorithm>
#include <boost/bind/bind.hpp>
#include <boost/function.hpp>
#include <boost/smart_ptr/make_shared.hpp>
#include <cmath>

#include "host/suite_access.h"
#include "mosaic/short_arithmetic.h"
#include "platform/nrvcore/localizer.h"
#include "platform/nrvui/ui_controls.h"
#include "platform/nrvui/ui_edits.h"

using nrvcore::UTF16String;
using nrvcore::config::Localizer;
using nrvui::controls::UI_Checkbox;
using nrvui::controls::UI_ControlView;
using nrvui::controls::UI_RadioButton;
using nrvui::controls::UI_StaticText;
using nrvui::controls::UI_TextButton;
using nrvui::controls::UI_TextEdit;
using nrvui::controls::UI_UnitNumberEdit;
using nrvui::ui::UI_ControlChangedMessage;

namespace {

constexpr const char* kTitle = "$$$/Tesserae/Cap/CreateTesserae=Create Tesserae";
constexpr const char* kNotAvailable = "$$$/Tesserae/Str/Misc/1=N/A";
constexpr uint32_t kLayout = 16301;

constexpr double kGreatestPercentage = 100.0;
constexpr double kGreatestLength = 8640.0;
constexpr double kLeastCount = 1.0;
constexpr double kGreatestCount = 8640.0;

// The maximum spacing in points is the tile count minus this number. The units differ, but callers
// depend on this formula.
constexpr float kCountLessGreatestSpacing = 2.0f;

}  // namespace

TesseraeUIDialog::TesseraeUIDialog(MosaicParameters** params, MosaicDialogState callerState,
                                   PluginRef plugin)
    : VXUIBaseDialog(plugin, "CreateMosaicDialog", Localizer::Get().Localize(kTitle), kLayout,
                     /*positionDialog=*/true, /*platformWindow=*/nullptr, /*centerDialog=*/true,
                     /*styleValue=*/0, /*modalContextFlag=*/true, /*themeName=*/nullptr,
                     /*attachSheetView=*/true, /*dialogPoint=*/{100.0f, 100.0f}),
      parameters(**params),
      state(callerState) {
  InitializeControls();
}

void TesseraeUIDialog::InitializeControls() {
  state.aspectRatio = 1.0f;
  state.noOriginalSize = parameters.sizeUnavailable;
  if (parameters.sizeUnavailable) state.usePercent = parameters.sizeUnavailable;
  state.reserved6 = 0;

  (void)ConnectControls();
  UpdateRadioButtons();
  Control<UI_Checkbox>("DeleteRasterChk")->SetChecked(parameters.deleteRaster != 0);

  // ShowSourceSize copies the texts of the size fields, which must show lengths during the copy.
  const bool usePercent = state.usePercent != 0;
  state.usePercent = 0;
  ResetNewSize();
  state.usePercent = usePercent;
  ShowSourceSize();
  ResetNewSize();

  SetUpCountField("HorizontalCountTxt", parameters.tilesAcross);
  SetUpCountField("VerticalCountTxt", parameters.tilesDown);
  SetUpSpacingField("TileSpaceHorzTxt");
  SetUpSpacingField("TileSpaceVertTxt");
  ClampTileSpacing();
}

int32_t TesseraeUIDialog::ConnectControls() {
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
  return 0;
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

void TesseraeUIDialog::ResetNewSize() {
  const auto width = SetUpSizeField("NewWidthTxt");
  const auto height = SetUpSizeField("NewHeightTxt");
  const bool showsShare = state.usePercent || state.noOriginalSize;
  width->SetNumber(showsShare ? kGreatestPercentage : LowShort(SourceWidth()));
  height->SetNumber(showsShare ? kGreatestPercentage : SourceHeight());
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

void TesseraeUIDialog::ShowSourceSize() {
  const auto widthLabel = Control<UI_StaticText>("OrigWidthStatic");
  const auto heightLabel = Control<UI_StaticText>("OrigHeightStatic");
  if (state.noOriginalSize) {
    const UTF16String notAvailable = Localizer::Get().Localize(kNotAvailable);
    widthLabel->SetValue(notAvailable);
    heightLabel->SetValue(notAvailable);
    return;
  }
  const auto width = Control<UI_TextEdit>("NewWidthTxt");
  const auto height = Control<UI_TextEdit>("NewHeightTxt");
  widthLabel->SetValue(width->GetValue());
  heightLabel->SetValue(height->GetValue());
}

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
  // A count below 2 would give a negative bound.
  const float greatest = std::max(0.0f, GetControlFloat(countID) - kCountLessGreatestSpacing);
  const auto field = Control<UI_UnitNumberEdit>(spacingID);
  const float spacing = static_cast<float>(field->GetNumber());
  field->SetUpperBound(greatest);
  if (spacing > greatest) field->SetNumber(greatest);
}

void TesseraeUIDialog::OnUsePercentChanged(UI_ControlChangedMessage*) {
  state.usePercent = Control<UI_Checkbox>("UsePercentChk")->IsChecked();
  ResetNewSize();
}

void TesseraeUIDialog::OnUseRatioButton(UI_ControlChangedMessage*) {
  // After a failed reload the module holds no suites, but the dialog can still be requested.
  const ScopedSuite<VXRealMathSuite> math;
  if (!math) return;
  // The host's arithmetic returns NaN on failure; the field then keeps its value.
  const auto setDerived = [this](const char* nodeID, float derived) {
    if (!std::isnan(derived)) SetControlNumber(nodeID, RoundToShort(derived));
  };
  int16_t fixed;
  if (!parameters.keepHorizontal) {
    GetControlShort("VerticalCountTxt", fixed);
    setDerived("HorizontalCountTxt", math->Multiply(fixed, state.aspectRatio));
    GetControlShort("NewHeightTxt", fixed);
    setDerived("NewWidthTxt", math->Multiply(fixed, state.aspectRatio));
  } else if (state.aspectRatio != 0.0f) {  // 0 has no inverse: both fields keep their values
    GetControlShort("HorizontalCountTxt", fixed);
    const float inverse = math->Divide(1.0f, state.aspectRatio);
    setDerived("VerticalCountTxt", math->Multiply(fixed, inverse));
    GetControlShort("NewWidthTxt", fixed);
    setDerived("NewHeightTxt", math->Multiply(fixed, inverse));
  }
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

void TesseraeUIDialog::DefaultCloseOk() {
  parameters.reserved64 = 0;
  parameters.reserved60 = 0;
  const float divisor = state.usePercent ? 100.0f : 1.0f;
  parameters.newWidth = GetControlFloat("NewWidthTxt") / divisor;
  parameters.newHeight = GetControlFloat("NewHeightTxt") / divisor;
  parameters.reserved32 = 0;
  parameters.reserved28 = 0;
  parameters.tileSpacingHorizontal = TruncateToInt(GetControlFloat("TileSpaceHorzTxt"));
  parameters.tileSpacingVertical = TruncateToInt(GetControlFloat("TileSpaceVertTxt"));
  parameters.tilesAcrossCopy = TruncateToInt(GetControlFloat("HorizontalCountTxt"));
  parameters.tilesAcross = parameters.tilesAcrossCopy;
  parameters.tilesDownCopy = TruncateToInt(GetControlFloat("VerticalCountTxt"));
  parameters.tilesDown = parameters.tilesDownCopy;
  UI_Dialog::DefaultCloseOk();
}

void TesseraeUIDialog::SetControlNumber(const char* nodeID, int32_t value) {
  Control<UI_UnitNumberEdit>(nodeID)->SetNumber(static_cast<float>(value));
}

void TesseraeUIDialog::GetControlShort(const char* nodeID, int16_t& value) const {
  value = LowShort(TruncateToInt(GetControlFloat(nodeID)));
}

float TesseraeUIDialog::GetControlFloat(const char* nodeID) const {
  return static_cast<float>(Control<UI_UnitNumberEdit>(nodeID)->GetNumber());
}

void TesseraeUIDialog::InstallChangeHandler(const char* nodeID, ChangeHandler handler) {
  const auto control = CheckedCast<UI_ControlView>(FindNodeByID(nodeID));
  if (!control) return;

  using NodeMessage = nrvui::ui::MessageT<nrvui::ui::UI_Node>;
  const boost::function1<void, UI_ControlChangedMessage*> inner =
      boost::bind(handler, this, boost::placeholders::_1);
  const nrvui::ui::MessageFunctionAdapter<NodeMessage, UI_ControlChangedMessage> adapter(inner);
  control->NotifyWhenChanged(boost::make_shared<boost::function<void(NodeMessage*)>>(adapter));
}
