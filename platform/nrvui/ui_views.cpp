#include "platform/nrvui/ui_views.h"

#include <stdexcept>

#include "platform/nrvui/ui_controls.h"
#include "platform/nrvui/ui_node.h"

namespace nrvui::ui {

UI_SubView::~UI_SubView() = default;

void UI_SubView::UI_TurnMnemonicsOnOffForAllChildren(bool on) {
  ForEachBelow<controls::UI_ControlView>(
      *this, [on](controls::UI_ControlView& control) { control.ShowMnemonic(on); });
}

OS_View::~OS_View() = default;

UI_Layout::~UI_Layout() = default;

UI_Panel::~UI_Panel() = default;

void UI_Panel::SetColumnCount(unsigned count) {
  if (count == 0 || count > kMaxColumns) throw std::invalid_argument("a grid's columns");
  UI_SetMember(columnCount, count);
}

bool UI_Panel::IsSpace() const {
  return title.IsEmpty() && Children(*this).empty();
}

}  // namespace nrvui::ui
