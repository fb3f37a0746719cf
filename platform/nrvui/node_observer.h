#pragma once

namespace nrvui::ui {

class UI_Node;

/// Follows every change of a node, whoever makes it: value, bounds, unit, caption, enabled and
/// shown state, rectangle, place, children, a dialog's response. A presenter with real windows
/// mirrors nodes this way.
class NodeObserver {
 public:
  virtual void NodeChanged(UI_Node& node) = 0;
  /// The node is on its way out: only its address still means something. Only for a node that is
  /// released by hand may it throw; others go with the smart pointer of their parent.
  virtual void NodeDestroyed(UI_Node&) {}

 protected:
  ~NodeObserver() = default;
};

}  // namespace nrvui::ui
