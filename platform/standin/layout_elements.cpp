#include "platform/standin/layout_elements.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include "platform/nrvcore/localizer.h"
#include "platform/nrvui/ui_controls.h"
#include "platform/nrvui/ui_edits.h"
#include "platform/nrvui/ui_views.h"
#include "platform/standin/live_token.h"

namespace standin {

using nrvcore::config::Message;

namespace {

bool IsNameCharacter(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

/// Whether the whole text is a number of this type.
template <typename Number>
bool Parse(std::string_view text, Number* number) {
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, *number);
  return result.ec == std::errc() && result.ptr == end;
}

}  // namespace

InvalidValue LayoutAttribute::Invalid(const char* key, std::string_view limit) const {
  return InvalidValue(Message(key, {name, value, limit}));
}

nrvcore::String LayoutAttribute::AsName() const {
  const std::string_view text = value;
  if (text.empty() || !std::all_of(text.begin(), text.end(), IsNameCharacter))
    throw Invalid(
        "$$$/standin/Layout/NoName=%1=\"%2\" is not a name of letters, digits and underscores");
  return nrvcore::String(text);
}

const char* LayoutAttribute::AsKey() const {
  const std::string_view key = value;
  const size_t equals = key.find('=');
  if (!key.starts_with("$$$/") || equals == std::string_view::npos || equals + 1 == key.size())
    throw Invalid(
        "$$$/standin/Layout/NoKey=%1=\"%2\" is not a localisation key of the form $$$/path=text");
  return value;
}

nrvcore::UTF16String LayoutAttribute::AsCaption() const {
  return nrvcore::config::Localizer::Get().Localize(AsKey());
}

double LayoutAttribute::AsNumber() const {
  double number{};
  if (!Parse(value, &number) || !std::isfinite(number))
    throw Invalid("$$$/standin/Layout/NoNumber=%1=\"%2\" is not a number");
  return number;
}

unsigned LayoutAttribute::AsCount(unsigned last) const {
  unsigned count{};
  if (!Parse(value, &count) || count < 1 || count > last)
    throw Invalid("$$$/standin/Layout/NoCount=%1=\"%2\" is not a whole number from 1 to %3",
                  std::to_string(last));
  return count;
}

namespace {

using nrvui::controls::UI_Button;
using nrvui::controls::UI_Checkbox;
using nrvui::controls::UI_ControlView;
using nrvui::controls::UI_RadioButton;
using nrvui::controls::UI_StaticText;
using nrvui::controls::UI_TextButton;
using nrvui::controls::UI_UnitNumberEdit;
using nrvui::ui::PanelArrangement;
using nrvui::ui::UI_Layout;
using nrvui::ui::UI_Node;
using nrvui::ui::UI_Panel;
using enum Presence;

template <class Node>
boost::intrusive_ptr<UI_Node> Make(const LiveToken& token) {
  return LiveNode<Node>::Make(token);
}

template <PanelArrangement kArrangement>
boost::intrusive_ptr<UI_Node> MakePanel(const LiveToken& token) {
  const boost::intrusive_ptr<UI_Panel> panel = LiveNode<UI_Panel>::Make(token);
  panel->SetArrangement(kArrangement);
  return panel;
}

/// Calls a setter of class `Node` with the attribute's value.
template <class Node, auto kSet, auto kRead>
void Apply(UI_Node& node, const LayoutAttribute& value) {
  (static_cast<Node&>(node).*kSet)((value.*kRead)());
}

constexpr auto kSetId = Apply<UI_Node, &UI_Node::UI_SetNodeID, &LayoutAttribute::AsName>;
constexpr auto kSetCaption =
    Apply<UI_ControlView, &UI_ControlView::SetCaption, &LayoutAttribute::AsCaption>;
constexpr auto kSetHelp = Apply<UI_ControlView, &UI_ControlView::SetHelp, &LayoutAttribute::AsKey>;
constexpr auto kSetDisabledHelp =
    Apply<UI_ControlView, &UI_ControlView::SetDisabledHelp, &LayoutAttribute::AsKey>;
constexpr auto kSetTitle = Apply<UI_Panel, &UI_Panel::SetTitle, &LayoutAttribute::AsCaption>;
constexpr auto kSetBuddy = Apply<UI_StaticText, &UI_StaticText::SetBuddy, &LayoutAttribute::AsName>;
constexpr auto kSetRadioGroup =
    Apply<UI_RadioButton, &UI_RadioButton::SetGroup, &LayoutAttribute::AsName>;
constexpr auto kSetNumber =
    Apply<UI_UnitNumberEdit, &UI_UnitNumberEdit::SetNumber, &LayoutAttribute::AsNumber>;

constexpr unsigned kLongestSide = 32767;

void SetWidth(UI_Node& node, const LayoutAttribute& value) {
  const auto width = static_cast<float>(value.AsCount(kLongestSide));
  node.UI_SetLocalRectF({0, 0, width, node.UI_GetLocalRectF().bottom});
}

void SetHeight(UI_Node& node, const LayoutAttribute& value) {
  const auto height = static_cast<float>(value.AsCount(kLongestSide));
  node.UI_SetLocalRectF({0, 0, node.UI_GetLocalRectF().right, height});
}

/// The reader looks the node up after it has read all of them.
void CheckName(UI_Node&, const LayoutAttribute& value) {
  static_cast<void>(value.AsName());
}

void SetColumns(UI_Node& node, const LayoutAttribute& value) {
  auto& panel = static_cast<UI_Panel&>(node);
  panel.SetArrangement(PanelArrangement::kGrid);
  panel.SetColumnCount(value.AsCount(UI_Panel::kMaxColumns));
}

constexpr AttributeRule kSheetAttributes[] = {
    {"focus", kOptional, CheckName},
    {"width", kOptional, SetWidth},
    {"height", kOptional, SetHeight},
};
constexpr AttributeRule kPanelAttributes[] = {{"id", kOptional, kSetId}};
constexpr AttributeRule kGridAttributes[] = {
    {"id", kOptional, kSetId},
    {"columns", kRequired, SetColumns},
};
constexpr AttributeRule kGroupAttributes[] = {
    {"id", kOptional, kSetId},
    {"caption", kRequired, kSetTitle},
    {"columns", kOptional, SetColumns},  // by default one
};
constexpr AttributeRule kLabelAttributes[] = {
    {"id", kOptional, kSetId},
    {"caption", kOptional, kSetCaption},
    {"for", kOptional, kSetBuddy},
};
constexpr AttributeRule kNumberAttributes[] = {
    {"id", kRequired, kSetId},
    {"help", kOptional, kSetHelp},
    {"help-disabled", kOptional, kSetDisabledHelp},
    {"value", kOptional, kSetNumber},
};
constexpr AttributeRule kButtonAttributes[] = {
    {"id", kRequired, kSetId},
    {"help", kOptional, kSetHelp},
    {"help-disabled", kOptional, kSetDisabledHelp},
    {"caption", kRequired, kSetCaption},
};
constexpr AttributeRule kRadioAttributes[] = {
    {"id", kRequired, kSetId},
    {"help", kOptional, kSetHelp},
    {"help-disabled", kOptional, kSetDisabledHelp},
    {"caption", kRequired, kSetCaption},
    {"group", kRequired, kSetRadioGroup},
};

constexpr LayoutElement kSheet = {"sheet", true, Make<UI_Layout>, kSheetAttributes};
constexpr LayoutElement kElements[] = {
    {"column", true, MakePanel<PanelArrangement::kColumn>, kPanelAttributes},
    {"row", true, MakePanel<PanelArrangement::kRow>, kPanelAttributes},
    {"grid", true, MakePanel<PanelArrangement::kGrid>, kGridAttributes},
    {"group", true, MakePanel<PanelArrangement::kColumn>, kGroupAttributes},
    {"space", false, MakePanel<PanelArrangement::kColumn>, {}},
    {"label", false, Make<UI_StaticText>, kLabelAttributes},
    {"number", false, Make<UI_UnitNumberEdit>, kNumberAttributes},
    {"checkbox", false, Make<UI_Checkbox>, kButtonAttributes},
    {"radio", false, Make<UI_RadioButton>, kRadioAttributes},
    {"button", false, Make<UI_Button>, kButtonAttributes},
    {"text-button", false, Make<UI_TextButton>, kButtonAttributes},
};

template <typename Row>
const Row* FindByName(std::span<const Row> rows, std::string_view name) {
  const auto row = std::find_if(rows.begin(), rows.end(),
                                [name](const Row& candidate) { return candidate.name == name; });
  return row == rows.end() ? nullptr : &*row;
}

}  // namespace

const LayoutElement& SheetElement() {
  return kSheet;
}

const LayoutElement* FindLayoutElement(std::string_view name) {
  return FindByName(std::span<const LayoutElement>(kElements), name);
}

const AttributeRule* FindAttributeRule(const LayoutElement& element, std::string_view name) {
  return FindByName(element.attributes, name);
}

}  // namespace standin
