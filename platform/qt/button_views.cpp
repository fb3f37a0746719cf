#include "platform/qt/button_views.h"

#include <QAccessibleWidget>
#include <QPushButton>
#include <QStyleOptionButton>

#include "platform/qt/qt_text.h"
#include "platform/qt/theme.h"

namespace qtui {

using nrvui::controls::UI_Button;
using nrvui::controls::UI_Checkbox;
using nrvui::controls::UI_ControlView;
using nrvui::controls::UI_RadioButton;

namespace {

constexpr int kOutlineShare = 120;  // of the text's colour, of 255

class PushButton final : public QPushButton {
 public:
  explicit PushButton(QWidget& parent) : QPushButton(&parent) {
    // DialogWindow handles Return. A click leaves the focus in the field, in case its entry is
    // refused or clamped.
    setAutoDefault(false);
    setFocusPolicy(Qt::TabFocus);
  }

  QSize sizeHint() const override {
    return QPushButton::sizeHint() + QSize(fontMetrics().averageCharWidth(), 0);
  }
  QSize minimumSizeHint() const override { return sizeHint(); }
};

/// A check box or radio button with a stronger outline. Fusion's has a contrast of less than 3 to 1
/// to the window's colour.
template <class Button>
class Outlined final : public Button {
 public:
  using Button::Button;

 protected:
  void initStyleOption(QStyleOptionButton* option) const override {
    Button::initStyleOption(option);
    if (!option->state.testFlag(QStyle::State_Enabled)) return;
    const int share = IsDark(option->palette) ? 255 : kOutlineShare;
    option->palette.setColor(QPalette::Window, Faint(option->palette, share));
  }
};

/// A check box or radio button for assistive technology. Qt's own interface toggles the button
/// without a click, so that the dialog's handler is not called, and reports no mnemonic.
class AccessibleToggle final : public QAccessibleWidget {
 public:
  static QAccessibleInterface* Make(const QString&, QObject* object) {
    if (auto* const radio = dynamic_cast<Outlined<QRadioButton>*>(object))
      return new AccessibleToggle(*radio, QAccessible::RadioButton);
    if (auto* const box = dynamic_cast<Outlined<QCheckBox>*>(object))
      return new AccessibleToggle(*box, QAccessible::CheckBox);
    return nullptr;
  }

  AccessibleToggle(QAbstractButton& shown, QAccessible::Role role)
      : QAccessibleWidget(&shown, role), button(shown) {}

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = true;
    state.checked = button.isChecked();
    return state;
  }
  QStringList actionNames() const override {
    QStringList names = QAccessibleWidget::actionNames();
    if (button.isEnabled()) names.prepend(toggleAction());
    return names;
  }
  void doAction(const QString& action) override {
    // Asynchronous, because the caller waits for the reply and a handler can run an event loop.
    action == toggleAction() ? button.animateClick() : QAccessibleWidget::doAction(action);
  }
  QStringList keyBindingsForAction(const QString& action) const override {
    if (action != toggleAction() || button.shortcut().isEmpty()) return {};
    return {button.shortcut().toString(QKeySequence::NativeText)};
  }

 private:
  QAbstractButton& button;
};

void InstallAccessibleToggles() {
  [[maybe_unused]] static const bool isInstalled = [] {
    QAccessible::installFactory(AccessibleToggle::Make);
    return true;
  }();
}

}  // namespace

ButtonView::ButtonView(DialogRun& modalRun, UI_ControlView& shown, QAbstractButton& widget)
    : CaptionedView(shown), button(widget) {
  InstallAccessibleToggles();
  QObject::connect(&button, &QAbstractButton::clicked, &button,
                   [this, &modalRun] { modalRun.Click(Node()); });
}

void ButtonView::SetCaption(const QString& caption) {
  const QString full = ToQString(control.GetCaption());
  button.setText(caption);
  // setText makes the mnemonic a shortcut only while it is shown.
  button.setShortcut(QKeySequence::mnemonic(full));
  button.setAccessibleName(SpokenName(full));
}

PushButtonView::PushButtonView(DialogRun& modalRun, UI_Button& shown, QWidget& parent)
    : ButtonView(modalRun, shown, *new PushButton(parent)) {}

CheckBoxView::CheckBoxView(DialogRun& modalRun, UI_Checkbox& shown, QWidget& parent)
    : ButtonView(modalRun, shown, *new Outlined<QCheckBox>(&parent)),
      checkbox(shown),
      widget(static_cast<QCheckBox&>(*Widget())) {}

void CheckBoxView::Sync() {
  widget.setChecked(checkbox.IsChecked());
  ButtonView::Sync();
}

RadioButtonView::RadioButtonView(DialogRun& modalRun, UI_RadioButton& shown,
                                 QButtonGroup& buttonGroup, QWidget& parent)
    : ButtonView(modalRun, shown, *new Outlined<QRadioButton>(&parent)),
      radio(shown),
      group(buttonGroup),
      widget(static_cast<QRadioButton&>(*Widget())) {
  group.addButton(&widget);
}

void RadioButtonView::Sync() {
  // Code can select none or several buttons of a group.
  const bool isSelected = radio.GetValue() == nrvui::controls::kRadioOn;
  group.setExclusive(false);
  widget.setChecked(isSelected);
  group.setExclusive(true);
  if (isSelected) MakeTabStop();
  ButtonView::Sync();
}

void RadioButtonView::MakeTabStop() {
  // Qt does this when the user selects a button, but not for a selection by code.
  for (QAbstractButton* button : group.buttons()) {
    button->setFocusPolicy(button == &widget ? Qt::StrongFocus : Qt::ClickFocus);
  }
}

}  // namespace qtui
