#include "studio/window/start_page.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QStyle>
#include <QToolButton>

#include "platform/qt/theme.h"
#include "studio/base/text.h"
#include "studio/window/captions.h"

namespace {

constexpr int kIconSide = 72;
constexpr int kMostPictures = 4;
constexpr int kPadding = 40;

QLabel* MakeLabel(const QString& text, const char* name, double size) {
  auto* const label = new QLabel(text);
  label->setObjectName(name);
  label->setAlignment(Qt::AlignCenter);
  label->setWordWrap(true);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * size);
  label->setFont(font);
  return label;
}

class IconLabel final : public QWidget {
 public:
  IconLabel() { setFixedSize(kIconSide, kIconSide); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setOpacity(0.45);
    painter.drawPixmap(rect(), qtui::ThemedIcon("picture").pixmap(size(), devicePixelRatioF()));
  }
};

}  // namespace

StartPage::StartPage(std::function<void()> open, std::function<void(const QString&)> openPicture)
    : openFile(std::move(openPicture)), frame(new QWidget(this)) {
  setObjectName("startPage");
  auto* const button = new QPushButton(Text("$$$/Studio/Start/Open=&Open Picture…"));
  button->setObjectName("startOpen");
  button->setAutoDefault(true);  // so that Return works
  button->setMinimumSize(button->sizeHint() + QSize(36, 10));
  QObject::connect(button, &QPushButton::clicked, this, std::move(open));

  recent = new QWidget;
  auto* const recentColumn = new QVBoxLayout(recent);
  recentColumn->setContentsMargins(0, kPadding / 2, 0, 0);
  auto* const title =
      MakeLabel(Text("$$$/Studio/Start/Recent=Recent pictures"), "recentTitle", 0.95);
  recentColumn->addWidget(title);
  recentList = new QVBoxLayout;
  recentList->setSpacing(2);
  recentColumn->addLayout(recentList);

  auto* const column = new QVBoxLayout(frame);
  column->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
  column->addWidget(new IconLabel, 0, Qt::AlignHCenter);
  column->addSpacing(8);
  column->addWidget(MakeLabel(Text("$$$/Studio/Start/Drop=Drop a picture here"), "dropHint", 1.6));
  auto* const what =
      MakeLabel(Text("$$$/Studio/Start/What=It becomes a mosaic of as many tiles as you like."),
                "whatHint", 1);
  column->addWidget(what);
  faintLabels = {title, what};
  TakeColors();
  column->addSpacing(12);
  column->addWidget(button, 0, Qt::AlignHCenter);
  column->addWidget(recent);

  auto* const page = new QVBoxLayout(this);
  page->addStretch(1);
  page->addWidget(frame, 0, Qt::AlignHCenter);
  page->addStretch(1);
  frame->setMinimumWidth(fontMetrics().averageCharWidth() * 64);
  ShowRecent({});
}

void StartPage::ShowRecent(const QStringList& paths) {
  while (QLayoutItem* const item = recentList->takeAt(0)) {
    delete item->widget();
    delete item;
  }
  recent->setVisible(!paths.isEmpty());
  for (const QString& path : paths.mid(0, kMostPictures)) {
    auto* const button = new QToolButton;
    button->setText(FileCaption(path));
    button->setToolTip(FileToolTip(path));
    button->setAccessibleDescription(path);  // the tool tip has markup
    button->setAutoRaise(true);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setIcon(qtui::ThemedIcon("picture"));
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
      auto* const shortcut = new QShortcut(key, button);
      shortcut->setContext(Qt::WidgetShortcut);
      QObject::connect(shortcut, &QShortcut::activated, button, &QToolButton::click);
    }
    QObject::connect(
        button, &QToolButton::clicked, this, [this, path] { openFile(path); },
        Qt::QueuedConnection);
    recentList->addWidget(button, 0, Qt::AlignHCenter);
  }
}

void StartPage::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) TakeColors();
}

void StartPage::TakeColors() {
  QPalette colors;
  colors.setColor(QPalette::WindowText, qtui::FaintText(palette()));
  for (QLabel* label : faintLabels) label->setPalette(colors);
}

void StartPage::SetDropHighlight(bool highlighted) {
  isHighlighted = highlighted;
  update();
}

void StartPage::paintEvent(QPaintEvent*) {
  constexpr int kCorner = 14;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QColor line = palette().color(isHighlighted ? QPalette::Highlight : QPalette::PlaceholderText);
  if (!isHighlighted) line.setAlphaF(0.6F);
  QPen pen(line, isHighlighted ? 2.5 : 1.5);
  pen.setDashPattern({5, 4});
  painter.setPen(pen);
  QColor fill = palette().color(isHighlighted ? QPalette::Highlight : QPalette::Base);
  if (isHighlighted) fill.setAlphaF(0.12F);
  painter.setBrush(fill);
  painter.drawRoundedRect(QRectF(frame->geometry()).adjusted(2, 2, -2, -2), kCorner, kCorner);
}
