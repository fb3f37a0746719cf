#include "platform/qt/button_views.h"

#include "platform/qt/text.h"

namespace qtui {

using nrvui::controls::UI_Button;
using nrvui::controls::UI_Checkbox;
using nrvui::controls::UI_ControlView;
using nrvui::controls::UI_RadioButton;

ButtonView::ButtonView(DialogRun& modalRun, UI_ControlView& shown, QAbstractButton& widget)
    : CaptionedView(shown), button(widget) {
  QObject::connect(&button, &QAbstractButton::clicked, &button, [this, &modalRun] {
    modalRun.Click(Node());
    Follow();
  });
}

void ButtonView::SetCaption(const QString& caption) {
  button.setText(caption);
  button.setAccessibleName(SpokenName(ToQString(control.GetCaption())));
}

PushButtonView::PushButtonView(DialogRun& modalRun, UI_Button& shown, QWidget& parent)
    : ButtonView(modalRun, shown, *new QPushButton(&parent)) {
  auto& widget = static_cast<QPushButton&>(*Widget());
  // Return is the dialog's; and a click leaves the focus in the field, so that the person is still
  // there when the entry has to be looked at first.
  widget.setAutoDefault(false);
  widget.setFocusPolicy(Qt::TabFocus);
}

CheckBoxView::CheckBoxView(DialogRun& modalRun, UI_Checkbox& shown, QWidget& parent)
    : ButtonView(modalRun, shown, *new QCheckBox(&parent)),
      checkbox(shown),
      widget(static_cast<QCheckBox&>(*Widget())) {}

void CheckBoxView::Follow() {
  widget.setChecked(checkbox.IsChecked());
  ButtonView::Follow();
}

RadioButtonView::RadioButtonView(DialogRun& modalRun, UI_RadioButton& shown,
                                 QButtonGroup& buttonGroup, QWidget& parent)
    : ButtonView(modalRun, shown, *new QRadioButton(&parent)),
      radio(shown),
      group(buttonGroup),
      widget(static_cast<QRadioButton&>(*Widget())) {
  group.addButton(&widget);
}

void RadioButtonView::Follow() {
  // Code may select none of a group, or two.
  group.setExclusive(false);
  widget.setChecked(radio.GetValue() == nrvui::controls::kRadioOn);
  group.setExclusive(true);
  ButtonView::Follow();
}

}  // namespace qtui
