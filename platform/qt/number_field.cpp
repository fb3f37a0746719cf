#include "platform/qt/number_field.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QStyle>
#include <QStyleOptionSpinBox>
#include <QWheelEvent>

namespace qtui {

namespace {

constexpr int kManySteps = 10;
constexpr int kWheelNotch = 120;
constexpr const char16_t* kWidestUsualText = u"8640.3333 pt";

int StepSize(Qt::KeyboardModifiers modifiers) {
  return modifiers.testFlag(Qt::ShiftModifier) ? kManySteps : 1;
}

}  // namespace

NumberField::NumberField(QWidget& parent) : QAbstractSpinBox(&parent), text(*new TextField(*this)) {
  // The name by which accessibility and styles know it as a part of this widget.
  text.setObjectName(QStringLiteral("qt_spinbox_lineedit"));
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

void NumberField::SetStepEnabled(StepEnabled possibleSteps) {
  if (possibleSteps == steps) return;
  steps = possibleSteps;
  update();
}

void NumberField::stepBy(int count) {
  Step(count * StepSize(QGuiApplication::keyboardModifiers()));
}

void NumberField::Step(int count) {
  if (listener != nullptr && count != 0) listener->StepAsked(count);
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
  // Some platforms turn the wheel sideways while Shift is down.
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
