#include "platform/qt/section.h"

#include <QEvent>
#include <QStyle>
#include <QStyleOptionGroupBox>
#include <QStylePainter>

namespace qtui {

Section::Section(QWidget& parent) : QGroupBox(&parent), titleFont(font()) {
  titleFont.setBold(true);
}

QSize Section::minimumSizeHint() const {
  QStyleOptionGroupBox option;
  initStyleOption(&option);
  const QFontMetrics metrics(titleFont);
  const QSize titleSize(metrics.size(Qt::TextShowMnemonic, title()));
  return style()
      ->sizeFromContents(QStyle::CT_GroupBox, &option, titleSize, this)
      .expandedTo(QWidget::minimumSizeHint());  // NOLINT: its own measures the title's plain font
}

void Section::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange) {
    titleFont = font();
    titleFont.setBold(true);
  }
  QGroupBox::changeEvent(event);
}

void Section::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionGroupBox option;
  initStyleOption(&option);
  option.fontMetrics = QFontMetrics(titleFont);
  painter.setFont(titleFont);
  painter.drawComplexControl(QStyle::CC_GroupBox, option);
}

}  // namespace qtui
