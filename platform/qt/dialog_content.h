#pragma once

#include <QHash>
#include <QScrollArea>
#include <memory>
#include <unordered_map>
#include <vector>

#include "platform/nrvui/ui_node.h"
#include "platform/qt/dialog_run.h"
#include "platform/qt/message_line.h"
#include "platform/qt/panel_view.h"

class QButtonGroup;

namespace qtui {

/// The widgets of a dialog's nodes, and its message line. Observes every node below the dialog and
/// updates its widget when a property of the node changes. The constructor reads the tree, the
/// arrangement of panels, the buddies of labels, the groups of radio buttons and the OK button;
/// later changes of these are ignored. User-interface thread only.
class DialogContent final : private nrvui::ui::NodeObserver {
 public:
  /// Fills `itsPane`, which must outlive the content and owns the widgets.
  DialogContent(DialogRun& modalRun, QWidget& itsPane);
  ~DialogContent();

  DialogContent(const DialogContent&) = delete;
  DialogContent& operator=(const DialogContent&) = delete;

  /// Null for a node without a widget.
  QWidget* WidgetOf(const nrvui::ui::UI_Node& node) const;
  /// Shows what was wrong with an entry in the field; ignores other nodes.
  void ShowEntry(const nrvui::ui::UI_Node& field, const nrvui::gestures::Outcome& outcome) const;
  void SetSummary(const Summary& text) { messages->SetSummary(text); }
  /// Shows the hint of the control that has this widget. Ignores other objects.
  void ShowHintOf(const QObject* widget);
  /// Puts the part above the messages into a scroll area, for a small screen; messages and buttons
  /// remain visible.
  void MakeScrollable();
  /// Scrolls to a widget; nothing if it does not scroll.
  void Reveal(QWidget& widget) const;
  /// The first enabled, visible widget that takes the focus; null when there is none.
  QWidget* FirstFocus() const;

  void ShowMnemonics(bool always);
  /// Aligns labels, buttons and groups for the present fonts. Returns the size that the content
  /// needs.
  QSize Align();

 private:
  void NodeChanged(nrvui::ui::UI_Node& node) override;

  NodeView& Make(nrvui::ui::UI_Node& node, QWidget& parent);
  std::unique_ptr<NodeView> MakeControl(nrvui::ui::UI_Node& node, QWidget& parent);
  void MakeChildren(PanelView& panel);
  QButtonGroup& GroupOf(const QString& name, QWidget& parent);
  NodeView* Find(const nrvcore::String& nodeID) const;
  void NameByLabels();
  void PlaceMessages();
  void MarkDefaultButton();

  DialogRun& run;
  QWidget& pane;
  MessageLine* messages;
  std::vector<std::unique_ptr<NodeView>> views;  // parents before their children
  std::unordered_map<const nrvui::ui::UI_Node*, NodeView*> viewOfNode;
  QHash<QString, QButtonGroup*> groups;
  QScrollArea* scroller = nullptr;   // null until something scrolls
  const NodeView* hinted = nullptr;  // whose hint is shown
};

}  // namespace qtui
