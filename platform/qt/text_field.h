#pragma once

#include <QLineEdit>

namespace qtui {

/// Told by the widget of a field what a person does in it.
class FieldListener {
 public:
  /// The person has gone on to another control.
  virtual void FieldLeft() = 0;
  /// Up or down by so many steps.
  virtual void StepAsked(int) {}
  /// Assistive technology puts a number there.
  virtual void NumberAsked(double) {}

 protected:
  ~FieldListener() = default;
};

/// A line of text that tells its listener when a person leaves it.
class TextField final : public QLineEdit {
 public:
  explicit TextField(QWidget& parent);

  /// It must outlive the field or be taken away (null).
  void SetListener(FieldListener* fieldListener) { listener = fieldListener; }

  /// Draws attention to the field.
  void SetMarked(bool mark);
  bool IsMarked() const { return isMarked; }

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  FieldListener* listener = nullptr;
  bool clickedInto = false;
  bool isMarked = false;
};

/// Paints the frame that draws attention to a field.
void PaintMark(QWidget& field);

}  // namespace qtui
