#pragma once

#include "platform/nrvui/ui_control_view.h"

namespace nrvui::controls {

/// A push button. It has no value: its handler hears of presses.
class NRV_EXPORT UI_Button : public UI_ControlView {
 public:
  UI_Button();
  ~UI_Button() override;
};

}  // namespace nrvui::controls
