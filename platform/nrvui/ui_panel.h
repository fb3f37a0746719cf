#pragma once

#include "platform/nrvui/ui_sub_view.h"

namespace nrvui::ui {

enum class PanelArrangement { kColumn, kRow, kGrid };

/// Says how its children are arranged; it places nothing itself, since only whoever draws them
/// knows how large they are.
class NRV_EXPORT UI_Panel : public UI_SubView {
 public:
  static constexpr unsigned kMostColumns = 16;

  UI_Panel();
  ~UI_Panel() override;

  void SetArrangement(PanelArrangement newArrangement);
  PanelArrangement GetArrangement() const;

  /// Children of a grid fill it row by row. Throws std::invalid_argument for 0 and for more than
  /// kMostColumns.
  void SetColumnCount(unsigned count);
  unsigned GetColumnCount() const;

  /// A panel with a title is a group with a frame; empty means none.
  void SetTitle(const nrvcore::UTF16String& newTitle);
  const nrvcore::UTF16String& GetTitle() const;

  /// Without title and content: it takes what room is left in a row or column, and leaves a place
  /// of a grid empty.
  bool IsSpace() const;

 private:
  PanelArrangement arrangement = PanelArrangement::kColumn;
  unsigned columnCount = 1;
  nrvcore::UTF16String title;
};

}  // namespace nrvui::ui
