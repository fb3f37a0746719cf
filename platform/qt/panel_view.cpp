#include "platform/qt/panel_view.h"

#include <QBoxLayout>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QStylePainter>
#include <algorithm>
#include <utility>

#include "platform/qt/field_view.h"
#include "platform/qt/label_view.h"
#include "platform/qt/qt_text.h"

namespace qtui {

using nrvui::ui::UI_Node;
using nrvui::ui::UI_Panel;

namespace {

constexpr int kControlGap = 8;
constexpr int kPanelGap = 16;
constexpr int kSectionPadding = 12;

/// A group box with a bold title. A bold font of the box itself would pass to its children.
class Section final : public QGroupBox {
 public:
  explicit Section(QWidget& parent) : QGroupBox(&parent), titleFont(Bold(font())) {}

  QSize minimumSizeHint() const override {
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    const QSize titleSize = QFontMetrics(titleFont).size(Qt::TextShowMnemonic, title());
    return style()
        ->sizeFromContents(QStyle::CT_GroupBox, &option, titleSize, this)
        .expandedTo(QWidget::minimumSizeHint());  // NOLINT: its own measures the title's plain font
  }

 protected:
  void changeEvent(QEvent* event) override {
    if (event->type() == QEvent::FontChange) titleFont = Bold(font());
    QGroupBox::changeEvent(event);
  }

  void paintEvent(QPaintEvent*) override {
    QStylePainter painter(this);
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    option.fontMetrics = QFontMetrics(titleFont);
    painter.setFont(titleFont);
    painter.drawComplexControl(QStyle::CC_GroupBox, option);
  }

 private:
  static QFont Bold(QFont font) {
    font.setBold(true);
    return font;
  }

  QFont titleFont;
};

bool IsSpace(const UI_Panel* panel) {
  return panel != nullptr && panel->IsSpace();
}

bool IsTitled(const UI_Panel* panel) {
  return panel != nullptr && !panel->GetTitle().IsEmpty();
}

QWidget* MakeWidget(const UI_Panel* panel, QWidget& parent) {
  if (IsSpace(panel)) return nullptr;
  if (IsTitled(panel)) return new Section(parent);
  return new QWidget(&parent);
}

bool TakesAllWidth(const NodeView& view) {
  return dynamic_cast<const PanelView*>(&view) != nullptr ||
         dynamic_cast<const FieldView*>(&view) != nullptr;
}

Qt::Alignment AlignmentOf(const NodeView& view) {
  return TakesAllWidth(view) ? Qt::Alignment() : Qt::AlignLeft | Qt::AlignVCenter;
}

/// QGridLayout invalidates itself and posts a layout request even for the same width.
void SetColumnWidth(QGridLayout& grid, int column, int width) {
  if (grid.columnMinimumWidth(column) != width) grid.setColumnMinimumWidth(column, width);
}

}  // namespace

PanelView::PanelView(UI_Node& shown, QWidget& parent)
    : NodeView(shown),
      panel(dynamic_cast<UI_Panel*>(&shown)),
      widget(MakeWidget(panel, parent)),
      arrangement(panel != nullptr ? panel->GetArrangement() : Arrangement::kColumn),
      columnCount(panel != nullptr ? static_cast<int>(panel->GetColumnCount()) : 1) {}

int PanelView::RowCount() const {
  return (static_cast<int>(views.size()) + columnCount - 1) / columnCount;
}

void PanelView::Sync() {
  if (auto* section = dynamic_cast<Section*>(widget)) {
    section->setTitle(AsCaption(ToQString(panel->GetTitle())));
  }
  NodeView::Sync();
}

void PanelView::Arrange(std::vector<NodeView*> children) {
  views = std::move(children);
  if (widget == nullptr) return;
  arrangement == Arrangement::kGrid ? ArrangeGrid() : ArrangeBox();
  const int padding = IsTitled(panel) ? kSectionPadding : 0;
  widget->layout()->setContentsMargins(padding, padding, padding, padding);
  if (HoldsPanels()) widget->layout()->setSpacing(kPanelGap);
}

bool PanelView::HoldsPanels() const {
  return std::ranges::any_of(views, [](const NodeView* view) {
    return view->Widget() != nullptr && dynamic_cast<const PanelView*>(view) != nullptr;
  });
}

void PanelView::ArrangeBox() {
  const bool isRow = arrangement == Arrangement::kRow;
  auto* const box =
      new QBoxLayout(isRow ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom, widget);
  box->setSpacing(kControlGap);
  bool isFilled = false;
  for (const NodeView* view : views) {
    if (view->Widget() == nullptr) {
      box->addStretch(1);
    } else {
      box->addWidget(view->Widget(), 0, AlignmentOf(*view));
    }
    isFilled |= view->Widget() == nullptr || (isRow && TakesAllWidth(*view));
  }
  // The panels of a column share extra height; other content keeps its size.
  if (!isFilled && (isRow || IsTitled(panel) || !HoldsPanels())) box->addStretch(1);
}

void PanelView::ArrangeGrid() {
  auto* const grid = new QGridLayout(widget);
  grid->setSpacing(kControlGap);
  for (int i = 0; i < static_cast<int>(views.size()); ++i) {
    const NodeView& view = *views[i];
    if (view.Widget() == nullptr) continue;
    const bool isInFront = i % columnCount + 1 < columnCount;
    const bool isLabel = dynamic_cast<const LabelView*>(&view) != nullptr;
    const Qt::Alignment alignment =
        isLabel && isInFront ? Qt::AlignRight | Qt::AlignVCenter : AlignmentOf(view);
    grid->addWidget(view.Widget(), i / columnCount, i % columnCount, alignment);
  }
  if (HoldsPanels()) {
    for (int column = 0; column < columnCount; ++column) grid->setColumnStretch(column, 1);
  } else {
    grid->setColumnStretch(columnCount - 1, 1);
  }
  // Extra height of a section goes below its rows.
  if (IsTitled(panel)) grid->setRowStretch(RowCount(), 1);
}

int PanelView::LabelWidth() const {
  if (arrangement != Arrangement::kGrid || columnCount < 2 || widget == nullptr) return 0;
  int width = 0;
  for (std::size_t i = 0; i < views.size(); i += static_cast<std::size_t>(columnCount)) {
    const auto* label = dynamic_cast<const LabelView*>(views[i]);
    if (label != nullptr) width = std::max(width, label->Widget()->sizeHint().width());
  }
  return width;
}

void PanelView::AlignLabels(int width, int rowHeight) {
  auto& grid = static_cast<QGridLayout&>(*widget->layout());
  SetColumnWidth(grid, 0, width);
  for (int row = 0; row < RowCount(); ++row) {
    if (grid.rowMinimumHeight(row) != rowHeight) grid.setRowMinimumHeight(row, rowHeight);
  }
}

void PanelView::Equalize() {
  if (widget == nullptr) return;
  QSize largest;
  std::vector<QPushButton*> buttons;
  for (const NodeView* view : views) {
    auto* const button = qobject_cast<QPushButton*>(view->Widget());
    const bool counts = button != nullptr || arrangement == Arrangement::kGrid;
    if (view->Widget() == nullptr || view->Widget()->isHidden() || !counts) continue;
    largest = largest.expandedTo(view->Widget()->sizeHint());
    if (button != nullptr) buttons.push_back(button);
  }
  if (arrangement == Arrangement::kRow) {
    for (QPushButton* button : buttons) button->setMinimumSize(largest);
  } else if (arrangement == Arrangement::kGrid && HoldsPanels()) {
    auto& grid = static_cast<QGridLayout&>(*widget->layout());
    for (int column = 0; column < columnCount; ++column)
      SetColumnWidth(grid, column, largest.width());
  }
}

}  // namespace qtui
