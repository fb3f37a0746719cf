#pragma once

#include "platform/nrvui/ui_button.h"

namespace nrvui::controls {

/// A button that shows its caption and nothing else.
class NRV_EXPORT UI_TextButton : public UI_Button {
 public:
  UI_TextButton();
  ~UI_TextButton() override;
};

}  // namespace nrvui::controls
