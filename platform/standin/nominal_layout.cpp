#include "platform/standin/nominal_layout.h"

#include <algorithm>
#include <vector>

#include "platform/nrvui/ui_button.h"
#include "platform/nrvui/ui_checkbox.h"
#include "platform/nrvui/ui_panel.h"
#include "platform/nrvui/ui_radio_button.h"
#include "platform/nrvui/ui_static_text.h"
#include "platform/nrvui/ui_text_edit.h"

namespace standin {
namespace {

using nrvcore::geom::PointT;
using nrvui::ui::Children;
using nrvui::ui::PanelArrangement;
using nrvui::ui::UI_Node;
using nrvui::ui::UI_Panel;
using Size = PointT<float>;

constexpr Size kCell = {7, 16};   // of one character
constexpr float kWideCell = 14;   // of an ideographic one
constexpr float kGap = 8;         // between neighbours
constexpr float kMargin = 20;     // around the whole
constexpr float kFrame = 12;      // inside a group's frame
constexpr float kIndicator = 22;  // the box of a check box with its distance from the caption
constexpr float kPadding = 16;    // of a button's caption on both sides
constexpr float kNarrowestButton = 84;
constexpr float kControlHeight = 24;  // of fields and buttons
constexpr int kValueCharacters = 12;  // of a field, or of a label that has no text yet

float TextWidth(const nrvcore::UTF16String& text) {
  const std::u16string_view view = text.View();
  float width = 0;
  for (size_t i = 0; i < view.size(); ++i) {
    // A mnemonic's mark takes no room, a doubled one that of a single character.
    if (view[i] == u'&' && ++i == view.size()) break;
    width += view[i] >= 0x2E80 ? kWideCell : kCell.x;
  }
  return width;
}

Size ControlSize(const nrvui::controls::UI_ControlView& control) {
  using namespace nrvui::controls;
  const float caption = TextWidth(control.GetCaption());
  if (dynamic_cast<const UI_StaticText*>(&control))
    return {caption > 0 ? caption : kValueCharacters * kCell.x, kCell.y};
  if (dynamic_cast<const UI_TextEdit*>(&control))
    return {kValueCharacters * kCell.x, kControlHeight};
  if (dynamic_cast<const UI_Button*>(&control))
    return {std::max(kNarrowestButton, caption + 2 * kPadding), kControlHeight};
  return {kIndicator + caption, kCell.y};
}

/// A panel without content, which takes what room is left.
bool IsSpace(const UI_Node& node) {
  const auto* const panel = dynamic_cast<const UI_Panel*>(&node);
  return panel && panel->GetTitle().IsEmpty() && Children(node).empty();
}

void SetSize(UI_Node& node, Size size) {
  node.UI_SetLocalRectF({0, 0, size.x, size.y});
}

Size SizeOf(const UI_Node& node) {
  const auto rect = node.UI_GetLocalRectF(false);
  return {rect.right, rect.bottom};
}

/// What a panel's children take together, each row as high and each column as wide as its largest.
struct Tracks {
  std::vector<float> columns;
  std::vector<float> rows;
};

size_t ColumnCount(const UI_Panel& panel) {
  switch (panel.GetArrangement()) {
    case PanelArrangement::kColumn:
      return 1;
    case PanelArrangement::kRow:
      return std::max<size_t>(Children(panel).size(), 1);
    case PanelArrangement::kGrid:
      return panel.GetColumnCount();
  }
  return 1;
}

Tracks MeasureTracks(const UI_Panel& panel) {
  const auto children = Children(panel);
  const size_t columns = ColumnCount(panel);
  Tracks tracks;
  tracks.columns.resize(columns);
  tracks.rows.resize((children.size() + columns - 1) / columns);
  for (size_t i = 0; i < children.size(); ++i) {
    const Size size = SizeOf(*children[i]);
    float& width = tracks.columns[i % columns];
    float& height = tracks.rows[i / columns];
    width = std::max(width, size.x);
    height = std::max(height, size.y);
  }
  return tracks;
}

float Length(const std::vector<float>& tracks) {
  float length = tracks.empty() ? 0 : kGap * static_cast<float>(tracks.size() - 1);
  for (const float track : tracks) length += track;
  return length;
}

/// The room between a panel's edges and its content.
struct Insets {
  float side;
  float top;
};

Insets InsetsOf(const UI_Panel& panel) {
  if (panel.GetTitle().IsEmpty()) return {0, 0};
  return {kFrame, kFrame + kCell.y};
}

/// Sets the natural sizes from the leaves upwards.
void Measure(UI_Node& node) {
  for (const auto& child : Children(node)) Measure(*child);
  if (const auto* const control = dynamic_cast<nrvui::controls::UI_ControlView*>(&node))
    return SetSize(node, ControlSize(*control));
  const auto* const panel = dynamic_cast<UI_Panel*>(&node);
  if (!panel) return;
  const Tracks tracks = MeasureTracks(*panel);
  const Insets insets = InsetsOf(*panel);
  const float titleWidth = TextWidth(panel->GetTitle());
  SetSize(node,
          {2 * insets.side + std::max(Length(tracks.columns), titleWidth),
           insets.top + insets.side * (panel->GetTitle().IsEmpty() ? 0 : 1) + Length(tracks.rows)});
}

/// Gives the room that is left over to the spaces of a row or column, in equal shares.
void Stretch(const UI_Panel& panel, Size room, Tracks* tracks) {
  const auto children = Children(panel);
  const bool isRow = panel.GetArrangement() == PanelArrangement::kRow;
  if (!isRow && panel.GetArrangement() != PanelArrangement::kColumn) return;
  std::vector<float>& along = isRow ? tracks->columns : tracks->rows;
  const auto spaces = std::count_if(children.begin(), children.end(),
                                    [](const auto& child) { return IsSpace(*child); });
  const float left = (isRow ? room.x : room.y) - Length(along);
  for (size_t i = 0; i < children.size(); ++i)
    if (IsSpace(*children[i])) along[i] += std::max(left, 0.0F) / static_cast<float>(spaces);
  std::vector<float>& across = isRow ? tracks->rows : tracks->columns;
  for (float& track : across) track = std::max(track, isRow ? room.y : room.x);
}

void PlaceChildren(UI_Panel& panel);

/// Places a node, and then what it holds: panels fill their room, whatever else keeps its size and
/// stands in the middle of its height.
void Place(UI_Node& node, PointT<float> position, Size room) {
  auto* const panel = dynamic_cast<UI_Panel*>(&node);
  if (panel) SetSize(node, room);
  node.UI_SetPosition({position.x, position.y + (room.y - SizeOf(node).y) / 2});
  if (panel) PlaceChildren(*panel);
}

void PlaceChildren(UI_Panel& panel) {
  const Insets insets = InsetsOf(panel);
  const Size size = SizeOf(panel);
  Tracks tracks = MeasureTracks(panel);
  const float bottom = panel.GetTitle().IsEmpty() ? 0 : kFrame;
  Stretch(panel, {size.x - 2 * insets.side, size.y - insets.top - bottom}, &tracks);
  const auto children = Children(panel);
  PointT<float> position = {insets.side, insets.top};
  for (size_t i = 0; i < children.size(); ++i) {
    const size_t column = i % tracks.columns.size();
    const size_t row = i / tracks.columns.size();
    if (column == 0) position.x = insets.side;
    const Size track = {tracks.columns[column], tracks.rows[row]};
    Place(*children[i], position, track);
    position.x += track.x + kGap;
    if (column + 1 == tracks.columns.size()) position.y += track.y + kGap;
  }
}

}  // namespace

Size LayOutNominally(nrvui::ui::UI_Layout& layout) {
  float width = 0;
  for (const auto& child : Children(layout)) {
    Measure(*child);
    width = std::max(width, SizeOf(*child).x);
  }
  float bottom = kMargin;
  for (const auto& child : Children(layout)) {
    const float height = SizeOf(*child).y;
    Place(*child, {kMargin, bottom}, {width, height});
    bottom += height + kGap;
  }
  const float gapAfterLast = Children(layout).empty() ? 0 : kGap;
  const Size natural = {width + 2 * kMargin, bottom - gapAfterLast + kMargin};
  SetSize(layout, natural);
  return natural;
}

}  // namespace standin
