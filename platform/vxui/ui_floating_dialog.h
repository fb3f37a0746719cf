#pragma once

#include "platform/nrvui/ui_dialog.h"

namespace vx::ui {

/// A dialog that floats above the host's documents.
class NRV_EXPORT UI_FloatingDialog : public nrvui::ui::UI_Dialog {
 public:
  using UI_Dialog::UI_Dialog;
  ~UI_FloatingDialog() override;
};

}  // namespace vx::ui
