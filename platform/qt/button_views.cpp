#include "platform/qt/button_views.h"

#include <QStyleOptionButton>

#include "platform/qt/qt_text.h"
#include "platform/qt/theme.h"

namespace qtui {

using nrvui::controls::UI_Button;
using nrvui::controls::UI_Checkbox;
using nrvui::controls::UI_ControlView;
using nrvui::controls::UI_RadioButton;

namespace {

constexpr int kOutlineShare = 120;  // of 255, how much of the text's colour is in an outline
constexpr int kDarkening = 175;     // percent: styles lighten what they fill, and the text is white

}  // namespace

ButtonView::ButtonView(DialogRun& modalRun, UI_ControlView& shown, QAbstractButton& widget)
    : CaptionedView(shown), button(widget) {
  QObject::connect(&button, &QAbstractButton::clicked, &button,
                   [this, &modalRun] { modalRun.Click(Node()); });
}

void ButtonView::SetCaption(const QString& caption) {
  button.setText(caption);
  button.setAccessibleName(SpokenName(ToQString(control.GetCaption())));
}

PushButton::PushButton(QWidget& parent) : QPushButton(&parent) {
  // Return is the dialog's; and a click leaves the focus in the field, so that the person is still
  // there when the entry has to be looked at first.
  setAutoDefault(false);
  setFocusPolicy(Qt::TabFocus);
}

QSize PushButton::sizeHint() const {
  return QPushButton::sizeHint() + QSize(fontMetrics().averageCharWidth(), 0);
}

void PushButton::initStyleOption(QStyleOptionButton* option) const {
  QPushButton::initStyleOption(option);
  if (!isDefault() || !isEnabled()) return;
  option->palette.setColor(QPalette::Button,
                           palette().color(QPalette::Highlight).darker(kDarkening));
  option->palette.setColor(QPalette::ButtonText, palette().color(QPalette::HighlightedText));
}

namespace {

/// Fusion draws outlines as a darker shade of the window's colour, less than 3 to 1 apart from it.
void StrengthenOutline(QStyleOptionButton& option) {
  if (!option.state.testFlag(QStyle::State_Enabled)) return;
  const QPalette& palette = option.palette;
  const bool isDark =
      palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
  option.palette.setColor(QPalette::Window, Faint(palette, isDark ? 255 : kOutlineShare));
}

}  // namespace

void CheckBox::initStyleOption(QStyleOptionButton* option) const {
  QCheckBox::initStyleOption(option);
  StrengthenOutline(*option);
}

void RadioButton::initStyleOption(QStyleOptionButton* option) const {
  QRadioButton::initStyleOption(option);
  StrengthenOutline(*option);
}

PushButtonView::PushButtonView(DialogRun& modalRun, UI_Button& shown, QWidget& parent)
    : ButtonView(modalRun, shown, *new PushButton(parent)) {}

CheckBoxView::CheckBoxView(DialogRun& modalRun, UI_Checkbox& shown, QWidget& parent)
    : ButtonView(modalRun, shown, *new CheckBox(&parent)),
      checkbox(shown),
      widget(static_cast<QCheckBox&>(*Widget())) {}

void CheckBoxView::Follow() {
  widget.setChecked(checkbox.IsChecked());
  ButtonView::Follow();
}

RadioButtonView::RadioButtonView(DialogRun& modalRun, UI_RadioButton& shown,
                                 QButtonGroup& buttonGroup, QWidget& parent)
    : ButtonView(modalRun, shown, *new RadioButton(&parent)),
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
