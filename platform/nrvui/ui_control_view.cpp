#include "platform/nrvui/ui_control_view.h"

namespace nrvui::controls {

UI_ControlView::UI_ControlView() = default;
UI_ControlView::~UI_ControlView() = default;

void UI_ControlView::NotifyWhenChanged(
    const boost::shared_ptr<ChangeNotifyFunction>& notifyFunction) {
  changed = notifyFunction;
}

void UI_ControlView::NotifyChangedByPerson() {
  const auto notify = changed;
  if (notify == nullptr) return;
  ui::UI_ControlChangedMessage message;
  (*notify)(&message);
}

void UI_ControlView::SetDisabled(bool disable) {
  if (disable == isDisabled) return;
  isDisabled = disable;
  UI_DisabledStateChanged(disable);
  UI_Changed();
}

bool UI_ControlView::IsDisabled() const {
  return isDisabled;
}

void UI_ControlView::SetCaption(const nrvcore::UTF16String& newCaption) {
  caption = newCaption;
  UI_Changed();
}

const nrvcore::UTF16String& UI_ControlView::GetCaption() const {
  return caption;
}

void UI_ControlView::ShowMnemonic(bool show) {
  if (show == mnemonicShown) return;
  mnemonicShown = show;
  UI_Changed();
}

bool UI_ControlView::IsMnemonicShown() const {
  return mnemonicShown;
}

}  // namespace nrvui::controls
