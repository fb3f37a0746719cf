#include "platform/nrvui/ui_checkbox.h"
#include "platform/nrvui/ui_radio_button.h"
#include "platform/nrvui/ui_static_text.h"
#include "platform/nrvui/ui_text_button.h"

namespace nrvui::controls {

UI_Button::UI_Button() = default;
UI_Button::~UI_Button() = default;

UI_TextButton::UI_TextButton() = default;
UI_TextButton::~UI_TextButton() = default;

UI_StaticText::UI_StaticText() = default;
UI_StaticText::~UI_StaticText() = default;

void UI_StaticText::SetValue(const nrvcore::UTF16String& text) {
  SetCaption(text);
}

const nrvcore::UTF16String& UI_StaticText::GetValue() const {
  return GetCaption();
}

void UI_StaticText::SetBuddy(const nrvcore::String& nodeID) {
  buddy = nodeID;
  UI_Changed();
}

const nrvcore::String& UI_StaticText::GetBuddy() const {
  return buddy;
}

UI_Checkbox::UI_Checkbox() = default;
UI_Checkbox::~UI_Checkbox() = default;

bool UI_Checkbox::IsChecked() const {
  return checked;
}

void UI_Checkbox::SetChecked(bool check) {
  checked = check;
  UI_Changed();
}

UI_RadioButton::UI_RadioButton() = default;
UI_RadioButton::~UI_RadioButton() = default;

RadioValue UI_RadioButton::GetValue() const {
  return value;
}

void UI_RadioButton::SetValue(RadioValue newValue) {
  value = newValue;
  UI_Changed();
}

void UI_RadioButton::SetGroup(const nrvcore::String& name) {
  group = name;
  UI_Changed();
}

const nrvcore::String& UI_RadioButton::GetGroup() const {
  return group;
}

}  // namespace nrvui::controls
