#pragma once

#include <QLineEdit>

namespace qtui {

/// Receives the user's actions in the widget of a field.
class FieldListener {
 public:
  /// Another control has the focus now.
  virtual void FieldLeft() = 0;
  /// A number of steps, negative for down.
  virtual void StepRequested(int /*count*/) {}
  /// A number that assistive technology sets.
  virtual void NumberRequested(double) {}

 protected:
  ~FieldListener() = default;
};

/// A line edit that notifies its listener when the user leaves it.
class TextField final : public QLineEdit {
 public:
  explicit TextField(QWidget& parent);

  /// The listener must outlive the field or be removed (null).
  void SetListener(FieldListener* fieldListener) { listener = fieldListener; }

  /// Frames the field in the warning colour.
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

/// Paints a frame in the warning colour over a field.
void PaintMark(QWidget& field);

}  // namespace qtui
