#include "platform/nrvui/gesture.h"

#include <algorithm>
#include <cmath>

#include "platform/nrvcore/localizer.h"
#include "platform/nrvui/number_text.h"
#include "platform/nrvui/ui_controls.h"
#include "platform/nrvui/ui_edits.h"
#include "platform/nrvui/ui_node.h"

namespace nrvui::gestures {

using controls::UI_Button;
using controls::UI_Checkbox;
using controls::UI_ControlView;
using controls::UI_RadioButton;
using controls::UI_TextEdit;
using nrvcore::UTF16String;
using nrvcore::geom::PointT;
using ui::UI_Dialog;
using ui::UI_Node;

namespace {

constexpr float kMaxSide = 32767;

bool IsOpen(const UI_Dialog& dialog) {
  return dialog.GetResponse() == ui::kNoResponse;
}

/// The reason why the user cannot operate a control, or kNone.
Refusal RefusalFor(const UI_Dialog& dialog, const UI_Node& node) {
  if (!IsOpen(dialog)) return Refusal::kDialogClosed;
  if (!node.UI_IsVisible()) return Refusal::kHidden;
  const auto* control = dynamic_cast<const UI_ControlView*>(&node);
  return control != nullptr && control->IsDisabled() ? Refusal::kDisabled : Refusal::kNone;
}

Outcome RefusedIfOpen(const UI_Dialog& dialog) {
  return IsOpen(dialog) ? Refused(Refusal::kStaysOpen) : Outcome();
}

Outcome NotifyChange(UI_ControlView& control) {
  control.NotifyChangedByUser();
  return {.changed = true};
}

Outcome Toggle(UI_Checkbox& checkbox) {
  checkbox.SetChecked(!checkbox.IsChecked());
  return NotifyChange(checkbox);
}

Outcome Select(UI_Dialog& dialog, UI_RadioButton& selected) {
  if (selected.GetValue() == controls::kRadioOn) return {};
  ui::ForEachBelow<UI_RadioButton>(*dialog.GetRootView(), [&](UI_RadioButton& other) {
    if (&other != &selected && other.GetGroup() == selected.GetGroup()) {
      other.SetValue(controls::kRadioOff);
    }
  });
  selected.SetValue(controls::kRadioOn);
  return NotifyChange(selected);
}

Outcome Push(UI_Dialog& dialog, UI_Button& button) {
  button.NotifyChangedByUser();
  const bool isOk = dialog.GetOkButton() == &button;
  const bool isCancel = dialog.GetCancelButton() == &button;
  if (!isOk && !isCancel) return {};
  if (!IsOpen(dialog)) return {};
  isOk ? dialog.DefaultCloseOk() : dialog.DefaultCloseCancel();
  return RefusedIfOpen(dialog);
}

UTF16String SizeText(PointT<float> size) {
  const char16_t sign = nrvcore::config::Localizer::Get().GetDecimalSign();
  UTF16String text = controls::FormatNumber(size.x, controls::NumberUnit::kNone, sign);
  text.Append(u" \u00D7 ");
  text.Append(controls::FormatNumber(size.y, controls::NumberUnit::kNone, sign).View());
  return text;
}

bool IsValidSide(float extent) {
  return extent >= 0 && extent <= kMaxSide;
}

}  // namespace

Outcome Enter(UI_Dialog& dialog, UI_Node& field, const UTF16String& text) {
  const boost::intrusive_ptr<UI_TextEdit> edit = dynamic_cast<UI_TextEdit*>(&field);
  if (edit == nullptr) return Refused(Refusal::kNotEditable);
  const Refusal refusal = RefusalFor(dialog, field);
  if (refusal != Refusal::kNone) return Refused(refusal);
  Outcome outcome = edit->AcceptEntry(text);
  if (outcome.changed) edit->NotifyChangedByUser();
  return outcome;
}

Outcome Click(UI_Dialog& dialog, UI_Node& control) {
  const boost::intrusive_ptr<UI_Node> clicked = &control;
  const Refusal refusal = RefusalFor(dialog, control);
  if (refusal != Refusal::kNone) return Refused(refusal);
  if (auto* checkbox = dynamic_cast<UI_Checkbox*>(&control)) return Toggle(*checkbox);
  if (auto* radio = dynamic_cast<UI_RadioButton*>(&control)) return Select(dialog, *radio);
  if (auto* button = dynamic_cast<UI_Button*>(&control)) return Push(dialog, *button);
  return Refused(Refusal::kNotClickable);
}

Outcome Press(UI_Dialog& dialog, Key key) {
  if (!IsOpen(dialog)) return Refused(Refusal::kDialogClosed);
  key == Key::kReturn ? dialog.OnReturnKey() : dialog.OnEscapeKey();
  return RefusedIfOpen(dialog);
}

Outcome Close(UI_Dialog& dialog) {
  if (!IsOpen(dialog)) return Refused(Refusal::kDialogClosed);
  if (!dialog.GetStyle().hasCloseBox) return Refused(Refusal::kNoCloseBox);
  dialog.OnCloseButton();
  return RefusedIfOpen(dialog);
}

Outcome Resize(UI_Dialog& dialog, PointT<float> contentSize) {
  if (!IsOpen(dialog)) return Refused(Refusal::kDialogClosed);
  if (!IsValidSide(contentSize.x) || !IsValidSide(contentSize.y)) {
    return Refused(Refusal::kNotASize, SizeText(contentSize));
  }
  // Layouts have sizes in whole points; a fraction would leave a gap at the window's edge.
  const PointT<float> wanted = {std::floor(contentSize.x), std::floor(contentSize.y)};
  const PointT<float> minimum = dialog.GetMinimumSize();
  const PointT<float> accepted = {std::max(wanted.x, minimum.x), std::max(wanted.y, minimum.y)};
  Outcome outcome;
  outcome.changed = !(accepted == dialog.GetContentSize());
  if (!(accepted == wanted)) {
    outcome.kind = OutcomeKind::kClampedToLowerBound;
    outcome.entered = SizeText(contentSize);
    outcome.replacement = SizeText(accepted);
  }
  dialog.SetContentSize(accepted);
  return outcome;
}

}  // namespace nrvui::gestures
