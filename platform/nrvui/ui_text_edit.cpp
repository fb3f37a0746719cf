#include "platform/nrvui/ui_text_edit.h"

namespace nrvui::controls {

UI_TextEdit::UI_TextEdit() = default;
UI_TextEdit::~UI_TextEdit() = default;

nrvcore::UTF16String UI_TextEdit::GetValue() const {
  return text;
}

void UI_TextEdit::SetValue(const nrvcore::UTF16String& newText) {
  text = newText;
  UI_Changed();
}

gestures::Outcome UI_TextEdit::AcceptEntry(const nrvcore::UTF16String& entry) {
  gestures::Outcome outcome;
  outcome.changed = !(entry == GetValue());
  if (outcome.changed) SetValue(entry);
  return outcome;
}

}  // namespace nrvui::controls
