#pragma once

#include "platform/nrvui/ui_control_view.h"

namespace nrvui::controls {

enum RadioValue { kRadioOff = 0, kRadioOn = 1 };

/// One of the buttons of its dialog that share a group name, of which a person selects one.
/// Setting a value from code leaves the others as they are.
class NRV_EXPORT UI_RadioButton : public UI_ControlView {
 public:
  UI_RadioButton();
  ~UI_RadioButton() override;

  RadioValue GetValue() const;
  void SetValue(RadioValue newValue);

  void SetGroup(const nrvcore::String& name);
  const nrvcore::String& GetGroup() const;

 private:
  RadioValue value = kRadioOff;
  nrvcore::String group;
};

}  // namespace nrvui::controls
