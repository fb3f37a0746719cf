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

/// A control as class T. An empty handle stays empty; a control of another class raises the
/// toolkit's invalid-type-conversion error.
template <class T>
boost::intrusive_ptr<T> CheckedCast(const boost::intrusive_ptr<nrvui::ui::UI_Node>& node) {
  boost::intrusive_ptr<T> control = boost::dynamic_pointer_cast<T>(node);
  if (node && !control) nrvcore::config::ThrowInvalidTypeConversion();
  return control;
}

/// The dialog "Create Tesserae". It works on copies of the caller's record and state; its change
/// handlers keep the fields consistent while it runs, and OK brings the number fields into the
/// copy of the record. A control that the layout lacks, or holds in another class, raises the
/// toolkit's invalid-type-conversion error wherever it is used.
class TesseraeUIDialog : public VXUIBaseDialog<nrvui::ui::UI_Dialog> {
 public:
  /// Builds the dialog from layout 16301 of the plug-in and gives every control its first value.
  /// Reads `**params` once and keeps no pointer to it. Throws what host and toolkit throw.
  TesseraeUIDialog(MosaicParameters** params, MosaicDialogState state, PluginRef pluginRef);

  /// Takes the number fields over and closes the dialog with the OK response.
  void DefaultCloseOk() override;

  const MosaicParameters& Parameters() const { return parameters; }
  const MosaicDialogState& State() const { return state; }

 private:
  using ChangeHandler = void (TesseraeUIDialog::*)(nrvui::ui::UI_ControlChangedMessage*);

  // Handlers and first values of the controls; some are set again by the handlers.
  void InitializeControls();
  /// Always 0.
  int32_t ConnectControls();
  void UpdateRadioButtons();
  void ResetNewSize();
  boost::intrusive_ptr<nrvui::controls::UI_UnitNumberEdit> SetUpSizeField(const char* nodeID);
  /// The full 32-bit width, from which the ratio is computed; the width field shows its low 16
  /// bits.
  int32_t SourceWidth() const;
  /// The low 16 bits of the height, for the ratio as well as for the field.
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
  /// Binds nothing, and reports nothing, when the layout has no such control.
  void InstallChangeHandler(const char* nodeID, ChangeHandler handler);

  MosaicParameters parameters;
  MosaicDialogState state;
};
