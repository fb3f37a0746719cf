#include "platform/nrvui/ui_controls.h"

#include "platform/nrvcore/localizer.h"

namespace nrvui::ui {

template <class Node>
MessageT<Node>::MessageT() = default;

template <class Node>
MessageT<Node>::~MessageT() = default;

template class MessageT<UI_Node>;

UI_ControlChangedMessage::~UI_ControlChangedMessage() = default;

}  // namespace nrvui::ui

namespace nrvui::controls {

UI_ControlView::~UI_ControlView() = default;

void UI_ControlView::NotifyWhenChanged(
    const boost::shared_ptr<ChangeNotifyFunction>& notifyFunction) {
  changed = notifyFunction;
}

void UI_ControlView::NotifyChangedByUser() {
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

nrvcore::UTF16String UI_ControlView::GetHelp() const {
  const nrvcore::String& key = isDisabled && !disabledHelp.IsEmpty() ? disabledHelp : help;
  return nrvcore::config::Localizer::Get().Localize(key.View().data());
}

void UI_ControlView::ShowMnemonic(bool show) {
  if (show == mnemonicShown) return;
  mnemonicShown = show;
  UI_Changed();
}

UI_Button::~UI_Button() = default;

UI_TextButton::~UI_TextButton() = default;

UI_StaticText::~UI_StaticText() = default;

void UI_StaticText::SetValue(const nrvcore::UTF16String& text) {
  SetCaption(text);
}

UI_Checkbox::~UI_Checkbox() = default;

bool UI_Checkbox::IsChecked() const {
  return checked;
}

void UI_Checkbox::SetChecked(bool check) {
  UI_SetMember(checked, check);
}

UI_RadioButton::~UI_RadioButton() = default;

void UI_RadioButton::SetValue(RadioValue newValue) {
  UI_SetMember(value, newValue);
}

}  // namespace nrvui::controls
