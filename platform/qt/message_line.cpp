#include "platform/qt/message_line.h"

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
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
  const int reserved = kReservedLines * label.fontMetrics().lineSpacing();
  const int iconRoom = icon.isHidden() ? 0 : icon.sizeHint().width() + kIconGap;
  const int needed = label.heightForWidth(std::max(width() - iconRoom, 1));
  label.setFixedHeight(isVisible() ? std::max(reserved, needed) : reserved);
}

void MessageLine::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  FitHeight();
}

void MessageLine::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::PaletteChange:
    case QEvent::LayoutDirectionChange:
      return Show();
    default:
      return;
  }
}

}  // namespace qtui
