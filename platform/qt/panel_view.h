#pragma once

#include <vector>

#include "platform/nrvui/ui_views.h"
#include "platform/qt/node_view.h"

namespace qtui {

/// A node with children, in the panel's arrangement or else in a column. A space panel has no
/// widget; it is stretch between its neighbours.
class PanelView final : public NodeView {
 public:
  PanelView(nrvui::ui::UI_Node& shown, QWidget& parent);

  QWidget* Widget() const override { return widget; }
  void Sync() override;

  /// Adds the children's views to the layout. To be called once.
  void Arrange(std::vector<NodeView*> children);

  /// The width of the widest label in the first column of a grid; 0 for all other panels.
  int LabelWidth() const;
  void AlignLabels(int width, int rowHeight);
  /// Gives the buttons of a row the same size, and the groups of a grid the same width.
  void Equalize();

 private:
  using Arrangement = nrvui::ui::PanelArrangement;

  int RowCount() const;
  void ArrangeBox();
  void ArrangeGrid();
  bool HoldsPanels() const;

  nrvui::ui::UI_Panel* panel;  // null for another kind of node
  QWidget* widget;
  std::vector<NodeView*> views;
  const Arrangement arrangement;
  const int columnCount;
};

}  // namespace qtui
