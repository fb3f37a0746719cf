#include "platform/nrvui/ui_panel.h"

#include <stdexcept>

namespace nrvui::ui {

UI_Panel::UI_Panel() = default;
UI_Panel::~UI_Panel() = default;

void UI_Panel::SetArrangement(PanelArrangement newArrangement) {
  arrangement = newArrangement;
  UI_Changed();
}

PanelArrangement UI_Panel::GetArrangement() const {
  return arrangement;
}

void UI_Panel::SetColumnCount(unsigned count) {
  if (count == 0 || count > kMostColumns) throw std::invalid_argument("a grid's columns");
  columnCount = count;
  UI_Changed();
}

unsigned UI_Panel::GetColumnCount() const {
  return columnCount;
}

void UI_Panel::SetTitle(const nrvcore::UTF16String& newTitle) {
  title = newTitle;
  UI_Changed();
}

const nrvcore::UTF16String& UI_Panel::GetTitle() const {
  return title;
}

bool UI_Panel::IsSpace() const {
  return title.IsEmpty() && Children(*this).empty();
}

}  // namespace nrvui::ui
