#include "mosaic/tesserae_ui_dialog.h"

#include "mosaic/short_arithmetic.h"
#include "platform/nrvcore/localizer.h"
#include "platform/nrvui/ui_checkbox.h"
#include "platform/nrvui/ui_static_text.h"
#include "platform/nrvui/ui_text_edit.h"

using nrvcore::UTF16String;
using nrvcore::config::Localizer;
using nrvui::controls::UI_Checkbox;
using nrvui::controls::UI_StaticText;
using nrvui::controls::UI_TextEdit;

namespace {

constexpr const char* kTitle = "$$$/Tesserae/Cap/CreateTesserae=Create Tesserae";
constexpr const char* kNotAvailable = "$$$/Tesserae/Str/Misc/1=N/A";
constexpr uint32_t kLayout = 16301;

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
  state.noOriginalSize = parameters.sizeUnavailable;
  if (parameters.sizeUnavailable) state.usePercent = parameters.sizeUnavailable;
  state.reserved6 = 0;

  ConnectControls();
  UpdateRadioButtons();
  Control<UI_Checkbox>("DeleteRasterChk")->SetChecked(parameters.deleteRaster != 0);

  // The labels copy what the size fields show in absolute mode, so that mode comes first.
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

void TesseraeUIDialog::ShowSourceSize() {
  const auto widthLabel = Control<UI_StaticText>("OrigWidthStatic");
  const auto heightLabel = Control<UI_StaticText>("OrigHeightStatic");
  if (state.noOriginalSize) {
    const UTF16String notAvailable = Localizer::Get().Localize(kNotAvailable);
    widthLabel->SetValue(notAvailable);
    heightLabel->SetValue(notAvailable);
    return;
  }
  widthLabel->SetValue(Control<UI_TextEdit>("NewWidthTxt")->GetValue());
  heightLabel->SetValue(Control<UI_TextEdit>("NewHeightTxt")->GetValue());
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
