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

/// The root view of a dialog.
class NRV_EXPORT OS_View : public UI_SubView {
 public:
  ~OS_View() override;
};

/// The layout node, between the sheet view and the panels. Its size is the size of the content. A
/// presenter that measures the content sets it, and the dialog adapts to it.
class NRV_EXPORT UI_Layout : public UI_SubView {
 public:
  ~UI_Layout() override;
};

enum class PanelArrangement { kColumn, kRow, kGrid };

/// A group of nodes with an arrangement. Presenters place the nodes, because their sizes depend on
/// the presenter's fonts.
class NRV_EXPORT UI_Panel : public UI_SubView {
 public:
  static constexpr unsigned kMaxColumns = 16;

  ~UI_Panel() override;

  void SetArrangement(PanelArrangement newArrangement) {
    UI_SetMember(arrangement, newArrangement);
  }
  PanelArrangement GetArrangement() const { return arrangement; }

  /// The number of columns of a grid, whose children fill it row by row. Throws
  /// std::invalid_argument unless `count` is from 1 to kMaxColumns.
  void SetColumnCount(unsigned count);
  unsigned GetColumnCount() const { return columnCount; }

  /// A panel with a title has a frame; an empty title removes both.
  void SetTitle(const nrvcore::UTF16String& newTitle) { UI_SetMember(title, newTitle); }
  const nrvcore::UTF16String& GetTitle() const { return title; }

  /// Whether the panel is a spacer: without title and children. A spacer takes the remaining space
  /// of a row or column, or one cell of a grid.
  bool IsSpace() const;

 private:
  PanelArrangement arrangement = PanelArrangement::kColumn;
  unsigned columnCount = 1;
  nrvcore::UTF16String title;
};

}  // namespace nrvui::ui
