#include "platform/nrvui/node_walk.h"
#include "platform/nrvui/os_view.h"
#include "platform/nrvui/ui_control_view.h"
#include "platform/nrvui/ui_layout.h"

namespace nrvui::ui {

UI_SubView::UI_SubView() = default;
UI_SubView::~UI_SubView() = default;

void UI_SubView::UI_TurnMnemonicsOnOffForAllChildren(bool on) {
  ForEachBelow<controls::UI_ControlView>(
      *this, [on](controls::UI_ControlView& control) { control.ShowMnemonic(on); });
}

OS_View::OS_View() = default;
OS_View::~OS_View() = default;

UI_Layout::UI_Layout() = default;
UI_Layout::~UI_Layout() = default;

}  // namespace nrvui::ui
