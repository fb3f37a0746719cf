#pragma once

#include "platform/nrvui/ui_node.h"

namespace nrvui::ui {

/// A node that is shown in a window: every view and every control.
class NRV_EXPORT UI_SubView : public UI_Node {
 public:
  ~UI_SubView() override;

  /// Shows or hides the mnemonic of every control below this view, at any depth.
  void UI_TurnMnemonicsOnOffForAllChildren(bool on);
};

/// A view with a window of its own: the root view of a dialog.
class NRV_EXPORT OS_View : public UI_SubView {
 public:
  ~OS_View() override;
};

/// The layout node, between the sheet view and the panels. Its rectangle is the size of the
/// content; a presenter that measures the content sets it, and the dialog follows.
class NRV_EXPORT UI_Layout : public UI_SubView {
 public:
  ~UI_Layout() override;
};

enum class PanelArrangement { kColumn, kRow, kGrid };

/// States how its children are arranged. The presenter places them, because their sizes depend on
/// its fonts.
class NRV_EXPORT UI_Panel : public UI_SubView {
 public:
  static constexpr unsigned kMostColumns = 16;

  ~UI_Panel() override;

  void SetArrangement(PanelArrangement newArrangement);
  PanelArrangement GetArrangement() const { return arrangement; }

  /// For a grid, which its children fill row by row. Throws std::invalid_argument unless `count` is
  /// from 1 to kMostColumns.
  void SetColumnCount(unsigned count);
  unsigned GetColumnCount() const { return columnCount; }

  /// A panel with a title has a frame. Empty means neither.
  void SetTitle(const nrvcore::UTF16String& newTitle);
  const nrvcore::UTF16String& GetTitle() const { return title; }

  /// Whether it has neither title nor children. It then takes the remaining space of a row or
  /// column, and one cell of a grid.
  bool IsSpace() const;

 private:
  PanelArrangement arrangement = PanelArrangement::kColumn;
  unsigned columnCount = 1;
  nrvcore::UTF16String title;
};

}  // namespace nrvui::ui
