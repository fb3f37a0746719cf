#pragma once

#include "platform/nrvui/ui_control_view.h"

namespace nrvui::controls {

/// A caption with a mark that a click sets or takes away.
class NRV_EXPORT UI_Checkbox : public UI_ControlView {
 public:
  UI_Checkbox();
  ~UI_Checkbox() override;

  bool IsChecked() const;
  void SetChecked(bool check);

 private:
  bool checked = false;
};

}  // namespace nrvui::controls
