#include "platform/qt/number_field.h"

#include <QAccessibleWidget>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QStyle>
#include <QStyleOptionSpinBox>
#include <QWheelEvent>
#include <cmath>

namespace qtui {

namespace {

constexpr int kManySteps = 10;
constexpr int kWheelNotch = 120;
constexpr const char16_t* kWidestUsualText = u"8640.3333 pt";

int StepSize(Qt::KeyboardModifiers modifiers) {
  return modifiers.testFlag(Qt::ShiftModifier) ? kManySteps : 1;
}

/// A number field for assistive technology. Qt's own interface reads the numbers of its own spin
/// boxes only.
class AccessibleNumber final : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  static QAccessibleInterface* Make(const QString&, QObject* object) {
    auto* const field = dynamic_cast<NumberField*>(object);
    return field != nullptr ? new AccessibleNumber(*field) : nullptr;
  }

  explicit AccessibleNumber(NumberField& shown)
      : QAccessibleWidget(&shown, QAccessible::SpinBox), field(shown) {}

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.editable = true;
    return state;
  }
  int childCount() const override { return 0; }  // the text is a part of the field
  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? field.Text().text() : QAccessibleWidget::text(kind);
  }
  QStringList keyBindingsForAction(const QString& action) const override {
    if (action != setFocusAction() || field.Mnemonic().isEmpty()) return {};
    return {field.Mnemonic().toString(QKeySequence::NativeText)};
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
    if (type != QAccessible::TextInterface && type != QAccessible::EditableTextInterface)
      return QAccessibleWidget::interface_cast(type);
    return QAccessible::queryAccessibleInterface(&field.Text())->interface_cast(type);
  }

  QVariant currentValue() const override { return field.ShownNumber().value; }
  void setCurrentValue(const QVariant& value) override {
    if (field.Listener() != nullptr) field.Listener()->NumberRequested(value.toDouble());
  }
  QVariant minimumValue() const override { return Bound(field.ShownNumber().lower); }
  QVariant maximumValue() const override { return Bound(field.ShownNumber().upper); }
  QVariant minimumStepSize() const override { return 1.0; }

 private:
  static QVariant Bound(double bound) { return std::isfinite(bound) ? bound : QVariant(); }

  NumberField& field;
};

}  // namespace

NumberField::NumberField(QWidget& parent) : QAbstractSpinBox(&parent), text(*new TextField(*this)) {
  [[maybe_unused]] static const bool isInstalled = [] {
    QAccessible::installFactory(AccessibleNumber::Make);
    return true;
  }();
  setLineEdit(&text);
  text.setLayoutDirection(Qt::LeftToRight);
  AlignText();
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void NumberField::SetListener(FieldListener* fieldListener) {
  listener = fieldListener;
  text.SetListener(fieldListener);
}

void NumberField::SetNumber(const Number& newNumber) {
  const bool hasChanged = newNumber.value != number.value;
  const StepEnabled former = stepEnabled();
  number = newNumber;
  if (stepEnabled() != former) update();
  if (!hasChanged || !QAccessible::isActive()) return;
  QAccessibleValueChangeEvent change(this, number.value);
  QAccessible::updateAccessibility(&change);
}

void NumberField::SetTyped(std::optional<double> typedNumber) {
  if (typedNumber == typed) return;
  typed = typedNumber;
  update();
}

QAbstractSpinBox::StepEnabled NumberField::stepEnabled() const {
  const double value = typed.value_or(number.value);
  StepEnabled steps;
  steps.setFlag(StepUpEnabled, value < number.upper);
  steps.setFlag(StepDownEnabled, value > number.lower);
  return steps;
}

void NumberField::stepBy(int count) {
  Step(count * StepSize(QGuiApplication::keyboardModifiers()));
}

void NumberField::Step(int count) {
  if (listener != nullptr && count != 0) listener->StepRequested(count);
}

QSize NumberField::sizeHint() const {
  ensurePolished();
  QStyleOptionSpinBox option;
  initStyleOption(&option);
  const int cursor = 2;
  if (textWidth == 0) {
    textWidth = fontMetrics().horizontalAdvance(QString::fromUtf16(kWidestUsualText));
  }
  const QSize content(textWidth + cursor, text.sizeHint().height());
  return style()->sizeFromContents(QStyle::CT_SpinBox, &option, content, this);
}

void NumberField::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Up:
      return Step(StepSize(event->modifiers()));
    case Qt::Key_Down:
      return Step(-StepSize(event->modifiers()));
    case Qt::Key_PageUp:
      return Step(kManySteps);
    case Qt::Key_PageDown:
      return Step(-kManySteps);
    default:
      return QAbstractSpinBox::keyPressEvent(event);
  }
}

void NumberField::wheelEvent(QWheelEvent* event) {
  if (!hasFocus()) return event->ignore();
  // Some platforms swap the axes of the wheel while Shift is down.
  const QPoint turned = event->angleDelta();
  wheelRemainder += turned.y() != 0 ? turned.y() : turned.x();
  const int notches = wheelRemainder / kWheelNotch;
  wheelRemainder %= kWheelNotch;
  Step(notches * StepSize(event->modifiers()));
  event->accept();
}

void NumberField::changeEvent(QEvent* event) {
  QAbstractSpinBox::changeEvent(event);
  if (event->type() == QEvent::LayoutDirectionChange) AlignText();
  if (event->type() == QEvent::FontChange) textWidth = 0;
}

void NumberField::AlignText() {
  setAlignment((isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

void NumberField::paintEvent(QPaintEvent* event) {
  QAbstractSpinBox::paintEvent(event);
  if (text.IsMarked()) PaintMark(*this);
}

}  // namespace qtui
