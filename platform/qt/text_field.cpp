#include "platform/qt/text_field.h"

#include <QFocusEvent>
#include <QPainter>
#include <utility>

#include "platform/qt/theme.h"

namespace qtui {

TextField::TextField(QWidget& parent) : QLineEdit(&parent) {}

void TextField::SetMarked(bool mark) {
  if (mark == isMarked) return;
  isMarked = mark;
  hasFrame() ? update() : parentWidget()->update();
}

void TextField::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  if (event->reason() == Qt::PopupFocusReason) return;
  clickedInto = event->reason() == Qt::MouseFocusReason;
  if (!isModified()) selectAll();
}

void TextField::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  // The focus returns from a popup menu or another application.
  const bool isInterrupted =
      event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason;
  if (!isInterrupted && listener != nullptr) listener->FieldLeft();
}

void TextField::mouseReleaseEvent(QMouseEvent* event) {
  QLineEdit::mouseReleaseEvent(event);
  // The press of the click that gave the focus has removed the selection.
  if (std::exchange(clickedInto, false) && !hasSelectedText()) selectAll();
}

void TextField::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  if (isMarked && hasFrame()) PaintMark(*this);
}

void PaintMark(QWidget& field) {
  QPainter painter(&field);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(WarningColor(field), 2));
  painter.drawRoundedRect(QRectF(field.rect()).adjusted(1, 1, -1, -1), 2, 2);
}

}  // namespace qtui
