#include "platform/qt/node_view.h"

#include "platform/qt/qt_text.h"

namespace qtui {

using nrvui::controls::UI_ControlView;

NodeView::NodeView(nrvui::ui::UI_Node& shownNode) : node(&shownNode) {}

NodeView::~NodeView() {
  node->UI_SetObserver(nullptr);
}

void NodeView::Sync() {
  QWidget* const widget = Widget();
  if (widget == nullptr) return;
  if (const auto* control = dynamic_cast<const UI_ControlView*>(node.get())) {
    widget->setEnabled(!control->IsDisabled());
    if (const QString text = Description(); text != widget->toolTip()) {
      widget->setToolTip(text);
      widget->setAccessibleDescription(text);
    }
  }
  if (node->UI_IsShown() == isShown) return;
  isShown = node->UI_IsShown();
  widget->setVisible(isShown);
}

QString NodeView::Description() const {
  const auto* control = dynamic_cast<const UI_ControlView*>(node.get());
  return control != nullptr ? ToQString(control->GetHelp()) : QString();
}

void NodeView::SetName(const QString& spokenName) {
  Widget()->setAccessibleName(spokenName);
}

CaptionedView::CaptionedView(UI_ControlView& shownControl)
    : NodeView(shownControl), control(shownControl) {}

QString CaptionedView::Caption(bool withMnemonic) const {
  const QString caption = ToQString(control.GetCaption());
  return withMnemonic ? caption : WithoutMnemonic(caption);
}

void CaptionedView::Sync() {
  const QString caption = Caption(mnemonicAlways || control.IsMnemonicShown());
  if (caption != shownCaption) {
    shownCaption = caption;
    SetCaption(caption);
  }
  NodeView::Sync();
}

void CaptionedView::ShowMnemonic(bool always) {
  mnemonicAlways = always;
  Sync();
}

}  // namespace qtui
