#pragma once

#include "platform/nrvui/ui_node.h"

namespace nrvui::ui {

/// A node that takes part in a window: every view and every control.
class NRV_EXPORT UI_SubView : public UI_Node {
 public:
  UI_SubView();
  ~UI_SubView() override;

  /// Shows or hides the mnemonic of every control below this view, at any depth.
  void UI_TurnMnemonicsOnOffForAllChildren(bool on);
};

}  // namespace nrvui::ui
