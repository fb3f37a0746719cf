#pragma once

#include <QKeySequence>
#include <QWidget>

#include "platform/nrvui/ui_controls.h"

namespace qtui {

/// Shows one node as a widget, which its parent widget owns and which outlives the view. The
/// destructor removes the node's observer, the content that created the view.
class NodeView {
 public:
  explicit NodeView(nrvui::ui::UI_Node& shownNode);
  NodeView(const NodeView&) = delete;
  NodeView& operator=(const NodeView&) = delete;
  virtual ~NodeView();

  nrvui::ui::UI_Node& Node() const { return *node; }
  /// Null for a panel that is only space between others.
  virtual QWidget* Widget() const = 0;

  /// Updates the widget from the node.
  virtual void Sync();

  /// Shows every mnemonic (while the Alt key is down), or only those of nodes that ask for it.
  virtual void ShowMnemonic(bool) {}
  /// The purpose of the control or why it is disabled, and its range; empty for other nodes. Used
  /// as tool tip and as accessible description.
  virtual QString Description() const;
  /// The longer form for the message line.
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

  void Sync() override;
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
