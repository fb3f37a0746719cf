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

void SetSize(UI_Node& node, Size size) {
  node.UI_SetLocalRectF({0, 0, size.x, size.y});
}

Size SizeOf(const UI_Node& node) {
  const auto rect = node.UI_GetLocalRectF(false);
  return {rect.right, rect.bottom};
}

float Length(const std::vector<float>& tracks) {
  float length = tracks.empty() ? 0 : kGap * static_cast<float>(tracks.size() - 1);
  for (const float track : tracks) length += track;
  return length;
}

/// A node with what the arrangement asks again and again: whether it is a panel, how large it is by
/// itself, and what stands in it.
class Box {
 public:
  /// Measures from the leaves upwards.
  explicit Box(UI_Node& measured);

  Size NaturalSize() const { return natural; }
  /// Panels fill their room, whatever else keeps its size and stands in the middle of its height.
  void Place(PointT<float> position, Size room);

 private:
  bool IsSpace() const { return panel && panel->IsSpace(); }
  bool IsTitled() const { return !panel->GetTitle().IsEmpty(); }
  size_t ColumnCount() const;
  void MeasureTracks();
  void StretchTracks(Size room);
  void PlaceChildren(Size size);

  UI_Node& node;
  UI_Panel* panel = nullptr;  // null when the node is none; all that follows is a panel's
  std::vector<Box> children;
  std::vector<float> columns;  // each as wide as its widest child
  std::vector<float> rows;     // each as high as its highest
  Size natural = {0, 0};
};

Box::Box(UI_Node& measured) : node(measured) {
  if (const auto* const control = dynamic_cast<nrvui::controls::UI_ControlView*>(&node)) {
    natural = ControlSize(*control);
    return;
  }
  panel = dynamic_cast<UI_Panel*>(&node);
  if (!panel) {
    natural = SizeOf(node);
    return;
  }
  children.reserve(Children(node).size());
  for (const auto& child : Children(node)) children.emplace_back(*child);
  MeasureTracks();
  const float frame = IsTitled() ? kFrame : 0;
  natural = {2 * frame + std::max(Length(columns), TextWidth(panel->GetTitle())),
             2 * frame + (IsTitled() ? kCell.y : 0) + Length(rows)};
}

size_t Box::ColumnCount() const {
  switch (panel->GetArrangement()) {
    case PanelArrangement::kColumn:
      return 1;
    case PanelArrangement::kRow:
      return std::max<size_t>(children.size(), 1);
    case PanelArrangement::kGrid:
      return panel->GetColumnCount();
  }
  return 1;
}

void Box::MeasureTracks() {
  columns.resize(ColumnCount());
  rows.resize((children.size() + columns.size() - 1) / columns.size());
  for (size_t i = 0; i < children.size(); ++i) {
    const Size size = children[i].NaturalSize();
    float& width = columns[i % columns.size()];
    float& height = rows[i / columns.size()];
    width = std::max(width, size.x);
    height = std::max(height, size.y);
  }
}

/// Gives the room that is left over to the spaces of a row or column, in equal shares.
void Box::StretchTracks(Size room) {
  const bool isRow = panel->GetArrangement() == PanelArrangement::kRow;
  if (!isRow && panel->GetArrangement() != PanelArrangement::kColumn) return;
  std::vector<float>& along = isRow ? columns : rows;
  const auto spaces = std::ranges::count_if(children, &Box::IsSpace);
  const float left = (isRow ? room.x : room.y) - Length(along);
  for (size_t i = 0; i < children.size(); ++i)
    if (children[i].IsSpace()) along[i] += std::max(left, 0.0F) / static_cast<float>(spaces);
  std::vector<float>& across = isRow ? rows : columns;
  for (float& track : across) track = std::max(track, isRow ? room.y : room.x);
}

void Box::Place(PointT<float> position, Size room) {
  const Size size = panel ? room : natural;
  SetSize(node, size);
  node.UI_SetPosition({position.x, position.y + (room.y - size.y) / 2});
  if (panel) PlaceChildren(size);
}

void Box::PlaceChildren(Size size) {
  const float frame = IsTitled() ? kFrame : 0;
  PointT<float> position = {frame, frame + (IsTitled() ? kCell.y : 0)};
  StretchTracks({size.x - 2 * frame, size.y - position.y - frame});
  for (size_t i = 0; i < children.size(); ++i) {
    const size_t column = i % columns.size();
    const Size track = {columns[column], rows[i / columns.size()]};
    children[i].Place(position, track);
    position.x += track.x + kGap;
    if (column + 1 == columns.size()) position = {frame, position.y + track.y + kGap};
  }
}

}  // namespace

Size LayOutNominally(nrvui::ui::UI_Layout& layout) {
  std::vector<Box> boxes;
  float width = 0;
  for (const auto& child : Children(layout)) {
    boxes.emplace_back(*child);
    width = std::max(width, boxes.back().NaturalSize().x);
  }
  float bottom = kMargin;
  for (Box& box : boxes) {
    const float height = box.NaturalSize().y;
    box.Place({kMargin, bottom}, {width, height});
    bottom += height + kGap;
  }
  const float gapAfterLast = boxes.empty() ? 0 : kGap;
  const Size natural = {width + 2 * kMargin, bottom - gapAfterLast + kMargin};
  SetSize(layout, natural);
  return natural;
}

}  // namespace standin
