#pragma once

#include <QHash>
#include <QScrollArea>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include "platform/nrvui/ui_node.h"
#include "platform/qt/dialog_run.h"
#include "platform/qt/message_line.h"
#include "platform/qt/panel_view.h"

class QButtonGroup;

namespace qtui {

/// The widgets for everything in a dialog, in a pane of their own, kept as the nodes are: it
/// observes every node below the dialog. The labels' buddies, the radio buttons' groups and the OK
/// button are those that it finds at first.
class DialogContent final : private nrvui::ui::NodeObserver {
 public:
  /// `rebuild` is called when the nodes have changed so that other widgets are needed.
  DialogContent(DialogRun& modalRun, QWidget& itsPane, std::function<void()> rebuild);
  ~DialogContent();

  DialogContent(const DialogContent&) = delete;
  DialogContent& operator=(const DialogContent&) = delete;

  /// Null for a node that is not shown here.
  QWidget* WidgetOf(const nrvui::ui::UI_Node& node) const;
  /// What is wrong with entries; a content that comes in the place of this one goes on saying it.
  const MessageLine::Problems& Problems() const { return messages->AllProblems(); }
  void ShowProblems(const MessageLine::Problems& problems);
  /// Shows what was wrong with an entry in the field; ignores other nodes.
  void ShowEntry(const nrvui::ui::UI_Node& field, const nrvui::gestures::Outcome& outcome) const;
  void SetSummary(const Summary& text) { messages->SetSummary(text); }
  /// Says what the control is for that `widget` shows; anything else is passed over.
  void Explain(const QObject* widget);
  /// Has what stands above the messages scroll, for a screen that has no room for all; messages and
  /// buttons stay in sight.
  void LetScroll();
  /// Scrolls to a widget.
  void Reveal(QWidget& widget) const;
  /// The first widget that a person can type or click in; null when there is none.
  QWidget* FirstFocus() const;

  void ShowMnemonics(bool always);
  /// Lines up labels, buttons and groups by the fonts in use, and says how much room that takes.
  QSize Align();

 private:
  void NodeChanged(nrvui::ui::UI_Node& node) override;

  NodeView& Make(nrvui::ui::UI_Node& node, QWidget& parent);
  std::unique_ptr<NodeView> MakeControl(nrvui::ui::UI_Node& node, QWidget& parent);
  void MakeChildren(PanelView& panel);
  QButtonGroup& GroupOf(const QString& name, QWidget& parent);
  NodeView* Find(const nrvcore::String& nodeID) const;
  void NameByLabels();
  bool HasFields() const;
  void PlaceMessages();
  void MarkDefaultButton();

  DialogRun& run;
  QWidget& pane;
  std::function<void()> whenOutdated;
  MessageLine* messages;
  std::vector<std::unique_ptr<NodeView>> views;  // parents before their children
  std::unordered_map<const nrvui::ui::UI_Node*, NodeView*> viewOfNode;
  QHash<QString, QButtonGroup*> groups;
  QScrollArea* scroller = nullptr;      // null until something scrolls
  const NodeView* explained = nullptr;  // what the messages say is about it
  bool isOutdated = false;
};

}  // namespace qtui
