#pragma once

#include <QKeySequence>
#include <QWidget>

#include "platform/nrvui/ui_controls.h"

namespace qtui {

/// Shows one node as a widget. The destructor removes the node's observer, which is the content
/// that made the view. The parent widget owns the widget; views are destroyed before it.
class NodeView {
 public:
  explicit NodeView(nrvui::ui::UI_Node& shownNode);
  NodeView(const NodeView&) = delete;
  NodeView& operator=(const NodeView&) = delete;
  virtual ~NodeView();

  nrvui::ui::UI_Node& Node() const { return *node; }
  /// Null for a node that only leaves room.
  virtual QWidget* Widget() const = 0;

  /// Makes the widget show the node as it is now.
  virtual void Follow();
  /// Whether the view still fits the node after a change of its children or arrangement.
  virtual bool StillFits() const { return true; }

  /// While the Alt key is down every mnemonic is shown, otherwise those that the nodes want.
  virtual void ShowMnemonic(bool) {}
  /// What the control is for, or why it is disabled, and what it takes; empty for other nodes.
  /// Shown as tool tip and told to assistive technology.
  virtual QString Description() const;
  /// The same as the message line has room for it.
  virtual QString Hint() const { return Description(); }

  /// Sets the name that screen readers say, taken from the node's label.
  virtual void SetName(const QString& spokenName);
  /// Sets the keys that focus the widget, taken from the node's label.
  virtual void SetMnemonic(const QKeySequence&) {}

 private:
  boost::intrusive_ptr<nrvui::ui::UI_Node> node;
  // True at first, since a widget is shown with its parent; setVisible before that would compute
  // the layout twice.
  bool isShown = true;
};

/// A control with a caption.
class CaptionedView : public NodeView {
 public:
  explicit CaptionedView(nrvui::controls::UI_ControlView& shownControl);

  void Follow() override;
  void ShowMnemonic(bool always) override;

 protected:
  /// The text to show.
  virtual QString Caption(bool withMnemonic) const;
  virtual void SetCaption(const QString& caption) = 0;

  nrvui::controls::UI_ControlView& control;

 private:
  bool mnemonicAlways = false;
  QString shownCaption;
};

}  // namespace qtui
