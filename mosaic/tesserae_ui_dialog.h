#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <cstdint>

#include "dialog/vxui_base_dialog.h"
#include "mosaic/mosaic_suite.h"
#include "platform/nrvcore/error.h"

namespace nrvui::ui {
class UI_ControlChangedMessage;
}
namespace nrvui::controls {
class UI_UnitNumberEdit;
}

/// The node as control class T; null stays null. A node of another class throws the toolkit's
/// invalid-type-conversion error.
template <class T>
boost::intrusive_ptr<T> CheckedCast(const boost::intrusive_ptr<nrvui::ui::UI_Node>& node) {
  boost::intrusive_ptr<T> control = boost::dynamic_pointer_cast<T>(node);
  if (node && !control) nrvcore::config::ThrowInvalidTypeConversion();
  return control;
}

/// The dialog "Create Tesserae", created by RunMosaicDialog. It works on copies of the caller's
/// record and state. While it runs, its change handlers keep the fields consistent; OK stores the
/// number fields in the copy of the record. Using a control that is missing from the layout, or of
/// another class there, throws the toolkit's invalid-type-conversion error. Main thread only.
class TesseraeUIDialog : public VXUIBaseDialog<nrvui::ui::UI_Dialog> {
 public:
  /// Builds the dialog from layout 16301 of the plug-in and sets every control's initial state.
  /// Reads `**params` once and keeps no pointer to it. Throws what host and toolkit throw.
  TesseraeUIDialog(MosaicParameters** params, MosaicDialogState state, PluginRef pluginRef);

  /// Stores the number fields in the record's copy and closes the dialog with the OK response.
  void DefaultCloseOk() override;

  const MosaicParameters& Parameters() const { return parameters; }
  const MosaicDialogState& State() const { return state; }

 private:
  using ChangeHandler = void (TesseraeUIDialog::*)(nrvui::ui::UI_ControlChangedMessage*);

  // Initialisation. Handlers call ResetNewSize and ClampTileSpacing again.
  void InitializeControls();
  /// Always 0.
  int32_t ConnectControls();
  void UpdateRadioButtons();
  void ResetNewSize();
  boost::intrusive_ptr<nrvui::controls::UI_UnitNumberEdit> SetUpSizeField(const char* nodeID);
  /// The full 32-bit width, from which the ratio is computed; the width field shows its low 16
  /// bits.
  int32_t SourceWidth() const;
  /// The low 16 bits of the height, used for both the ratio and the height field.
  int16_t SourceHeight() const;
  float SourceAspectRatio() const;
  void ShowSourceSize();
  void SetUpCountField(const char* nodeID, int32_t count);
  void SetUpSpacingField(const char* nodeID);
  void ClampTileSpacing();
  void ClampSpacing(const char* countID, const char* spacingID);

  // Change handlers.
  void OnUsePercentChanged(nrvui::ui::UI_ControlChangedMessage*);
  void OnUseRatioButton(nrvui::ui::UI_ControlChangedMessage*);
  void OnTileCountChanged(nrvui::ui::UI_ControlChangedMessage*);
  void OnDeleteRasterChanged(nrvui::ui::UI_ControlChangedMessage*);
  void OnHorizontalRadio(nrvui::ui::UI_ControlChangedMessage*);
  void OnVerticalRadio(nrvui::ui::UI_ControlChangedMessage*);
  void OnColorRadio(nrvui::ui::UI_ControlChangedMessage*);
  void OnGrayRadio(nrvui::ui::UI_ControlChangedMessage*);

  // Access to the controls, by node ID.
  template <class T>
  boost::intrusive_ptr<T> Control(const char* nodeID) const {
    boost::intrusive_ptr<T> control = CheckedCast<T>(FindNodeByID(nodeID));
    if (!control) nrvcore::config::ThrowInvalidTypeConversion();
    return control;
  }
  void SetControlNumber(const char* nodeID, int32_t value);
  void GetControlShort(const char* nodeID, int16_t& value) const;
  float GetControlFloat(const char* nodeID) const;
  /// Does nothing if the layout has no such control.
  void InstallChangeHandler(const char* nodeID, ChangeHandler handler);

  MosaicParameters parameters;
  MosaicDialogState state;
};
