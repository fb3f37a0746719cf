#include "platform/qt/section.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionGroupBox>

namespace qtui {

namespace {

constexpr qreal kCorner = 5;
constexpr int kFrameShare = 40;  // of 255, how much of the text's colour is in the frame
constexpr int kFillShare = 9;    // and inside it

QColor Faint(const QWidget& widget, int share) {
  QColor color = widget.palette().color(QPalette::WindowText);
  color.setAlpha(share);
  return color;
}

}  // namespace

Section::Section(QWidget& parent) : QGroupBox(&parent) {}

QFont Section::TitleFont() const {
  QFont bold = font();
  bold.setBold(true);
  return bold;
}

QString Section::PlainTitle() const {
  return title().replace(QStringLiteral("&&"), QStringLiteral("&"));
}

QSize Section::minimumSizeHint() const {
  const int titleWidth = QFontMetrics(TitleFont()).horizontalAdvance(PlainTitle());
  return QGroupBox::minimumSizeHint().expandedTo(QSize(titleWidth, 0));
}

void Section::paintEvent(QPaintEvent*) {
  QStyleOptionGroupBox option;
  initStyleOption(&option);
  const auto partRect = [&](QStyle::SubControl part) {
    return style()->subControlRect(QStyle::CC_GroupBox, &option, part, this);
  };
  QRectF frame = rect();
  frame.setTop(partRect(QStyle::SC_GroupBoxContents).top());
  QRect titleRect = partRect(QStyle::SC_GroupBoxLabel);
  titleRect.setLeft(rect().left());
  titleRect.setRight(rect().right());

  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Faint(*this, kFrameShare));
  painter.setBrush(Faint(*this, kFillShare));
  painter.drawRoundedRect(frame.adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
  painter.setFont(TitleFont());
  style()->drawItemText(&painter, titleRect, Qt::AlignLeft | Qt::AlignVCenter, palette(),
                        isEnabled(), PlainTitle(), foregroundRole());
}

}  // namespace qtui
