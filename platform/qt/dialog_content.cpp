#include "platform/qt/dialog_content.h"

#include <QButtonGroup>
#include <QEvent>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/qt/button_views.h"
#include "platform/qt/field_view.h"
#include "platform/qt/label_view.h"
#include "platform/qt/qt_text.h"

namespace qtui {

using nrvui::ui::UI_Node;

namespace {

constexpr int kMargin = 20;
constexpr int kScrollGap = 8;  // beside a scroll bar

template <class Node>
Node* As(UI_Node& node) {
  return dynamic_cast<Node*>(&node);
}

/// A scroll area whose size hint is that of its content.
class Scroller final : public QScrollArea {
 public:
  explicit Scroller(QWidget& parent) : QScrollArea(&parent) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
  }

  QSize sizeHint() const override { return widget()->sizeHint(); }

 protected:
  bool event(QEvent* event) override {
    if (event->type() == QEvent::LayoutRequest) updateGeometry();
    return QScrollArea::event(event);
  }
};

}  // namespace

DialogContent::DialogContent(DialogRun& modalRun, QWidget& itsPane)
    : run(modalRun), pane(itsPane), messages(new MessageLine(itsPane)) {
  messages->setObjectName(QStringLiteral("messages"));
  auto* const column = new QVBoxLayout(&pane);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(0);
  column->addWidget(Make(*run.Dialog().GetRootView(), pane).Widget());
  NameByLabels();
  PlaceMessages();
  MarkDefaultButton();
}

DialogContent::~DialogContent() = default;

NodeView& DialogContent::Make(UI_Node& node, QWidget& parent) {
  std::unique_ptr<NodeView> made = MakeControl(node, parent);
  if (made == nullptr) made = std::make_unique<PanelView>(node, parent);
  NodeView& view = *views.emplace_back(std::move(made));
  viewOfNode.emplace(&node, &view);
  if (view.Widget() != nullptr) view.Widget()->setObjectName(ToQString(node.UI_GetNodeID()));
  if (auto* panel = dynamic_cast<PanelView*>(&view)) MakeChildren(*panel);
  view.Sync();
  node.UI_SetObserver(this);
  return view;
}

std::unique_ptr<NodeView> DialogContent::MakeControl(UI_Node& node, QWidget& parent) {
  using namespace nrvui::controls;
  if (auto* shown = As<UI_NumberEdit>(node)) {
    return std::make_unique<NumberFieldView>(run, *messages, *shown, *new NumberField(parent));
  }
  if (auto* shown = As<UI_TextEdit>(node)) {
    return std::make_unique<FieldView>(run, *messages, *shown, *new TextField(parent));
  }
  if (auto* shown = As<UI_Checkbox>(node)) {
    return std::make_unique<CheckBoxView>(run, *shown, parent);
  }
  if (auto* shown = As<UI_RadioButton>(node)) {
    QButtonGroup& group = GroupOf(ToQString(shown->GetGroup()), pane);
    return std::make_unique<RadioButtonView>(run, *shown, group, parent);
  }
  if (auto* shown = As<UI_Button>(node)) {
    return std::make_unique<PushButtonView>(run, *shown, parent);
  }
  if (auto* shown = As<UI_StaticText>(node)) return std::make_unique<LabelView>(*shown, parent);
  return nullptr;
}

void DialogContent::MakeChildren(PanelView& panel) {
  std::vector<NodeView*> children;
  for (const auto& child : nrvui::ui::Children(panel.Node())) {
    children.push_back(&Make(*child, *panel.Widget()));
  }
  panel.Arrange(std::move(children));
}

QButtonGroup& DialogContent::GroupOf(const QString& name, QWidget& parent) {
  QButtonGroup*& group = groups[name];
  if (group == nullptr) group = new QButtonGroup(&parent);
  return *group;
}

NodeView* DialogContent::Find(const nrvcore::String& nodeID) const {
  const auto found = std::ranges::find_if(
      views, [&](const auto& view) { return view->Node().UI_GetNodeID() == nodeID; });
  return found == views.end() ? nullptr : found->get();
}

void DialogContent::NameByLabels() {
  for (const auto& view : views) {
    const auto* text = As<nrvui::controls::UI_StaticText>(view->Node());
    if (text == nullptr || text->GetBuddy().IsEmpty()) continue;
    NodeView* const buddy = Find(text->GetBuddy());
    if (buddy != nullptr && buddy->Widget() != nullptr) {
      static_cast<LabelView&>(*view).SetBuddy(*buddy);
    }
  }
}

void DialogContent::PlaceMessages() {
  // The messages go above the row of the OK button. Extra height of the window goes above them.
  const auto& okButton = run.Dialog().GetOkButton();
  QWidget* row = okButton != nullptr ? WidgetOf(*okButton) : nullptr;
  for (; row != nullptr && row != &pane; row = row->parentWidget()) {
    auto* const column = qobject_cast<QBoxLayout*>(row->parentWidget()->layout());
    if (column == nullptr || column->direction() != QBoxLayout::TopToBottom) continue;
    if (column->itemAt(column->count() - 1)->spacerItem() != nullptr) {
      delete column->takeAt(column->count() - 1);
    }
    const int index = column->indexOf(row);
    column->insertWidget(index, messages);
    return column->insertStretch(index, 1);
  }
  auto* const column = static_cast<QVBoxLayout*>(pane.layout());
  column->addStretch(1);
  column->addWidget(messages);
}

void DialogContent::MakeScrollable() {
  if (scroller != nullptr) return;
  QWidget* const focus = pane.window()->focusWidget();
  auto& column = static_cast<QBoxLayout&>(*messages->parentWidget()->layout());
  scroller = new Scroller(*messages->parentWidget());
  auto* const scrolled = new QWidget(scroller);
  auto* const box = new QVBoxLayout(scrolled);
  const bool isMirrored = pane.isRightToLeft();
  box->setContentsMargins(isMirrored ? kScrollGap : 0, 0, isMirrored ? 0 : kScrollGap, 0);
  box->setSpacing(column.spacing());
  while (column.itemAt(0)->widget() != messages) {
    const std::unique_ptr<QLayoutItem> item(column.takeAt(0));
    item->widget() != nullptr ? box->addWidget(item->widget()) : box->addStretch(1);
  }
  scroller->setWidget(scrolled);
  column.insertWidget(0, scroller, 1);
  if (focus != nullptr) focus->setFocus();
}

void DialogContent::Reveal(QWidget& widget) const {
  if (scroller != nullptr && scroller->isAncestorOf(&widget)) {
    scroller->ensureWidgetVisible(&widget);
  }
}

QWidget* DialogContent::WidgetOf(const UI_Node& node) const {
  const auto found = viewOfNode.find(&node);
  return found == viewOfNode.end() ? nullptr : found->second->Widget();
}

void DialogContent::ShowEntry(const UI_Node& field, const nrvui::gestures::Outcome& outcome) const {
  const auto found = viewOfNode.find(&field);
  if (found == viewOfNode.end()) return;
  if (auto* const view = dynamic_cast<FieldView*>(found->second)) view->ShowEntry(outcome);
}

void DialogContent::ShowHintOf(const QObject* widget) {
  const auto found = std::ranges::find_if(
      views, [&](const auto& view) { return widget != nullptr && view->Widget() == widget; });
  if (found == views.end()) return;
  hinted = found->get();
  messages->SetHint(hinted->Hint());
}

QWidget* DialogContent::FirstFocus() const {
  for (const auto& view : views) {
    QWidget* const widget = view->Widget();
    const bool takesFocus = widget != nullptr && widget->focusPolicy() != Qt::NoFocus;
    if (takesFocus && widget->isEnabled() && view->Node().UI_IsVisible()) return widget;
  }
  return nullptr;
}

void DialogContent::ShowMnemonics(bool always) {
  for (const auto& view : views) view->ShowMnemonic(always);
}

void DialogContent::MarkDefaultButton() {
  const auto& okButton = run.Dialog().GetOkButton();
  auto* const button =
      okButton != nullptr ? qobject_cast<QPushButton*>(WidgetOf(*okButton)) : nullptr;
  if (button != nullptr) button->setDefault(true);
}

QSize DialogContent::Align() {
  std::vector<PanelView*> panels;
  for (const auto& view : views) {
    if (auto* panel = dynamic_cast<PanelView*>(view.get())) panels.push_back(panel);
  }
  int labelWidth = 0;
  int fieldHeight = 0;
  for (const PanelView* panel : panels) labelWidth = std::max(labelWidth, panel->LabelWidth());
  for (const auto& view : views) {
    if (dynamic_cast<const FieldView*>(view.get()) == nullptr) continue;
    fieldHeight = std::max(fieldHeight, view->Widget()->sizeHint().height());
  }
  for (PanelView* panel : panels) {
    if (panel->LabelWidth() > 0) panel->AlignLabels(labelWidth, fieldHeight);
  }
  std::ranges::reverse(panels);  // children before their parents
  for (PanelView* panel : panels) {
    panel->Equalize();
    // A layout that is not activated reports the former sizes of its children.
    if (panel->Widget() != nullptr) panel->Widget()->layout()->activate();
    if (scroller == nullptr) continue;
    scroller->widget()->layout()->activate();
    scroller->updateGeometry();
  }
  return pane.layout()->totalSizeHint().expandedTo(pane.layout()->totalMinimumSize());
}

void DialogContent::NodeChanged(UI_Node& node) {
  NodeView& view = *viewOfNode.at(&node);
  view.Sync();
  if (&view == hinted) messages->SetHint(hinted->Hint());
}

}  // namespace qtui
