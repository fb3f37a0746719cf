#include "platform/qt/message_line.h"

#include <QEvent>
#include <QStringList>
#include <QStyle>
#include <QtMath>
#include <algorithm>

#include "platform/nrvcore/localizer.h"
#include "platform/qt/announcement.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/theme.h"

namespace qtui {

using nrvui::ui::UI_Node;

namespace {

constexpr int kReservedLines = 3;
constexpr int kIconGap = 8;
constexpr int kSummaryPause = 1000;  // ms

}  // namespace

MessageLine::MessageLine(QWidget& parent)
    : QWidget(&parent), icon(*new QLabel(this)), label(*new QLabel(this)) {
  icon.setAccessibleName(
      ToQString(nrvcore::config::Localizer::Get().Localize("$$$/nrvui/Message/Warning=Warning")));
  label.setTextFormat(Qt::PlainText);
  label.setWordWrap(true);
  pause.setSingleShot(true);
  pause.callOnTimeout([this] { Announce(); });
  Show();
}

void MessageLine::SetSummary(const Summary& text) {
  if (text.text == summary.text && text.isWarning == summary.isWarning) return;
  summary = text;
  Show();
  AnnounceAfter(summary.isWarning ? 0 : kSummaryPause);
}

void MessageLine::SetHint(const QString& text) {
  if (text == hint) return;
  hint = text;
  Show();
}

void MessageLine::SetProblem(const UI_Node& field, const QString& text) {
  if (!problems.empty() && problems.back() == std::pair(&field, text)) return;
  std::erase_if(problems, [&](const auto& problem) { return problem.first == &field; });
  problems.emplace_back(&field, text);
  Show();
  AnnounceAfter(0);
}

void MessageLine::ClearProblem(const UI_Node& field) {
  const auto cleared =
      std::ranges::find(problems, &field, [](const auto& problem) { return problem.first; });
  if (cleared == problems.end()) return;
  if (cleared->second == announcedProblem) announcedProblem.clear();
  problems.erase(cleared);
  Show();
  AnnounceAfter(kSummaryPause);
}

void MessageLine::AnnounceAfter(int delay) {
  if (isVisible() && (!pause.isActive() || pause.interval() > 0)) pause.start(delay);
}

void MessageLine::Announce() {
  const QString problem = problems.empty() ? QString() : problems.back().second;
  QStringList texts;
  if (problem != announcedProblem) texts += problem;
  if (summary.text != announcedSummary && (problem.isEmpty() || summary.isWarning))
    texts += announcedSummary = summary.text;
  announcedProblem = problem;
  qtui::Announce(*window(), texts.join(' ').trimmed());
}

void MessageLine::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  AnnounceAfter(kSummaryPause);
}

QString MessageLine::Text() const {
  QStringList texts;
  if (!problems.empty()) texts += problems.back().second;
  if (summary.isWarning || problems.empty()) texts += summary.text;
  if (!IsWarning()) texts += hint;
  texts.removeAll({});
  return texts.join('\n');
}

void MessageLine::Show() {
  const bool isWarning = IsWarning();
  // QLabel would align a wrapped text by the direction of its script.
  label.setAlignment((isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute |
                     Qt::AlignTop);
  label.setText(Text());
  QPalette colors;
  colors.setColor(QPalette::WindowText, isWarning ? WarningColor(*this) : FaintText(palette()));
  label.setPalette(colors);
  icon.setVisible(isWarning);
  if (isWarning) icon.setPixmap(WarningIcon(*this));
  Arrange();
}

void MessageLine::Arrange() {
  // Without a layout: height-for-width in one widget makes QLayout compute it for the whole dialog,
  // and a message must not widen the dialog.
  const QFontMetricsF metrics(font());
  const int iconRoom = icon.isHidden() ? 0 : icon.sizeHint().width() + kIconGap;
  const int textWidth = std::max(width() - iconRoom, 1);
  int lines = kReservedLines;
  if (isVisible()) {
    const QRectF room(0, 0, textWidth, QWIDGETSIZE_MAX);
    const qreal height = metrics.boundingRect(room, Qt::TextWordWrap, Text()).height();
    lines = std::max(lines, qRound(height / metrics.lineSpacing()));
  }
  setFixedHeight(lines * qCeil(metrics.lineSpacing()));
  const QRect textRect(iconRoom, 0, textWidth, height());
  label.setGeometry(QStyle::visualRect(layoutDirection(), rect(), textRect));
  if (icon.isHidden()) return;
  icon.setGeometry(QStyle::visualRect(layoutDirection(), rect(), {{}, icon.sizeHint()}));
}

void MessageLine::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Arrange();
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
