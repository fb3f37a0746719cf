#pragma once

#include <QAbstractSpinBox>
#include <QKeySequence>
#include <optional>

#include "platform/qt/text_field.h"

namespace qtui {

/// A text field for a number that can be stepped with buttons, keys and wheel. Its listener parses
/// the text.
class NumberField final : public QAbstractSpinBox {
 public:
  /// The number and its bounds, for steps and assistive technology. Bounds can be infinite.
  struct Number {
    double value = 0;
    double lower = 0;
    double upper = 0;
  };

  explicit NumberField(QWidget& parent);

  /// The listener must outlive the field or be removed (null).
  void SetListener(FieldListener* fieldListener);
  TextField& Text() const { return text; }
  FieldListener* Listener() const { return listener; }
  void SetNumber(const Number& newNumber);
  const Number& ShownNumber() const { return number; }
  /// The number that is being typed, which steps start from; nothing when the field is not being
  /// edited or its text is not a number.
  void SetTyped(std::optional<double> typedNumber);
  /// The keys that focus the field, as its label shows them.
  void SetMnemonic(const QKeySequence& keys) { mnemonic = keys; }
  const QKeySequence& Mnemonic() const { return mnemonic; }

  StepEnabled stepEnabled() const override;
  void stepBy(int count) override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  QValidator::State validate(QString&, int&) const override { return QValidator::Acceptable; }
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void Step(int count);
  void AlignText();

  TextField& text;
  FieldListener* listener = nullptr;
  Number number;
  std::optional<double> typed;
  QKeySequence mnemonic;
  int wheelRemainder = 0;
  mutable int textWidth = 0;  // of the widest usual text in the font; 0 until it is measured
};

}  // namespace qtui
