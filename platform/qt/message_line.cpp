#include "platform/qt/message_line.h"

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
#include <QtMath>
#include <algorithm>

#include "platform/qt/theme.h"

namespace qtui {

namespace {

constexpr int kReservedLines = 2;
constexpr int kIconGap = 8;

}  // namespace

MessageLine::MessageLine(QWidget& parent)
    : QWidget(&parent), icon(*new QLabel(this)), label(*new QLabel(this)) {
  icon.setAccessibleName(QString());
  label.setTextFormat(Qt::PlainText);
  label.setWordWrap(true);
  // The text takes whatever width there is: a message never widens the dialog.
  QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  policy.setHeightForWidth(false);
  label.setSizePolicy(policy);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kIconGap);
  row->addWidget(&icon, 0, Qt::AlignTop);
  row->addWidget(&label, 1);
  label.installEventFilter(this);
  Show();
}

void MessageLine::SetHint(const QString& text) {
  hint = text;
  Show();
}

void MessageLine::SetProblem(const void* owner, const QString& text) {
  std::erase_if(problems, [owner](const auto& problem) { return problem.first == owner; });
  problems.emplace_back(owner, text);
  Show();
  QAccessibleEvent alert(&label, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void MessageLine::ClearProblem(const void* owner) {
  std::erase_if(problems, [owner](const auto& problem) { return problem.first == owner; });
  Show();
}

QString MessageLine::Text() const {
  return problems.empty() ? hint : problems.back().second;
}

void MessageLine::Show() {
  const bool isProblem = !problems.empty();
  // A wrapped text would otherwise go to the side from which its own script is read.
  label.setAlignment((isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute |
                     Qt::AlignTop);
  label.setText(Text());
  label.setForegroundRole(isProblem ? QPalette::WindowText : QPalette::PlaceholderText);
  icon.setVisible(isProblem);
  if (isProblem) icon.setPixmap(WarningIcon(*this));
  FitHeight();
}

void MessageLine::FitHeight() {
  const QFontMetricsF metrics(label.font());
  const int iconRoom = icon.isHidden() ? 0 : icon.sizeHint().width() + kIconGap;
  const QRectF room(0, 0, std::max(width() - iconRoom, 1), QWIDGETSIZE_MAX);
  const qreal height = metrics.boundingRect(room, Qt::TextWordWrap, Text()).height();
  const int needed = isVisible() ? qRound(height / metrics.lineSpacing()) : 0;
  label.setFixedHeight(std::max(kReservedLines, needed) * qCeil(metrics.lineSpacing()));
}

bool MessageLine::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FontChange) Show();
  return QWidget::eventFilter(watched, event);
}

void MessageLine::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  FitHeight();
}

void MessageLine::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  switch (event->type()) {
    case QEvent::PaletteChange:
    case QEvent::LayoutDirectionChange:
      return Show();
    default:
      return;
  }
}

}  // namespace qtui
