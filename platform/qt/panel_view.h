#pragma once

#include <vector>

#include "platform/nrvui/ui_views.h"
#include "platform/qt/node_view.h"

namespace qtui {

/// A node with children, arranged as a panel says; nodes that are no panels arrange theirs in a
/// column. A panel without content has no widget: it leaves room between its neighbours.
class PanelView final : public NodeView {
 public:
  PanelView(nrvui::ui::UI_Node& shown, QWidget& parent);

  QWidget* Widget() const override { return widget; }
  void Follow() override;
  bool StillFits() const override;

  /// Puts the children's views in place, once.
  void Arrange(std::vector<NodeView*> children);

  /// What the labels of a grid with labels in front need; 0 for all other panels.
  int LabelWidth() const;
  void AlignLabels(int width, int rowHeight);
  /// Makes the buttons of a row equally large, and the groups of a grid equally wide.
  void Equalize();

 private:
  using Arrangement = nrvui::ui::PanelArrangement;

  Arrangement CurrentArrangement() const;
  int ColumnCount() const;
  int RowCount() const;
  void ArrangeBox();
  void ArrangeGrid();
  bool HoldsPanels() const;

  nrvui::ui::UI_Panel* panel;  // null for another kind of node
  QWidget* widget;
  std::vector<NodeView*> views;
  Arrangement arrangement;
  int columnCount;
};

}  // namespace qtui
