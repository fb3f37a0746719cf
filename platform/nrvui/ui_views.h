#pragma once

#include "platform/nrvui/ui_node.h"

namespace nrvui::ui {

/// A node that takes part in a window: every view and every control.
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

/// The layout node of a built layout, between the sheet view and the panels. Its rectangle is the
/// room that the content takes; a presenter that measures the content sets it, and the dialog
/// follows.
class NRV_EXPORT UI_Layout : public UI_SubView {
 public:
  ~UI_Layout() override;
};

enum class PanelArrangement { kColumn, kRow, kGrid };

/// Says how its children are arranged; it places nothing itself, since their sizes depend on the
/// presenter's fonts.
class NRV_EXPORT UI_Panel : public UI_SubView {
 public:
  static constexpr unsigned kMostColumns = 16;

  ~UI_Panel() override;

  void SetArrangement(PanelArrangement newArrangement);
  PanelArrangement GetArrangement() const { return arrangement; }

  /// Children of a grid fill it row by row. Throws std::invalid_argument for 0 and for more than
  /// kMostColumns.
  void SetColumnCount(unsigned count);
  unsigned GetColumnCount() const { return columnCount; }

  /// A panel with a title is a group with a frame; empty means none.
  void SetTitle(const nrvcore::UTF16String& newTitle);
  const nrvcore::UTF16String& GetTitle() const { return title; }

  /// Without title and content: it takes what room is left in a row or column, and leaves a place
  /// of a grid empty.
  bool IsSpace() const;

 private:
  PanelArrangement arrangement = PanelArrangement::kColumn;
  unsigned columnCount = 1;
  nrvcore::UTF16String title;
};

}  // namespace nrvui::ui
