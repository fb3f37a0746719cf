#include "platform/standin/layout_reader.h"

#include <algorithm>
#include <boost/container/flat_map.hpp>
#include <charconv>
#include <cmath>
#include <pugixml.hpp>
#include <span>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "platform/nrvcore/file.h"
#include "platform/nrvcore/localizer.h"
#include "platform/nrvui/ui_controls.h"
#include "platform/nrvui/ui_edits.h"

namespace standin {
namespace {

using nrvcore::config::Message;
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
using nrvui::ui::UI_SubView;

/// The value of an attribute is malformed; what() is the reason.
class InvalidValue : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Attribute {
  const char* name;
  const char* value;
};

const char* Text(const Attribute& attribute) {
  return attribute.value;
}

/// The text of a localisation key in the user's language.
nrvcore::UTF16String Caption(const Attribute& attribute) {
  return nrvcore::config::Localizer::Get().Localize(attribute.value);
}

/// Whether the whole text is a number of this type.
template <typename Number>
bool Parse(std::string_view text, Number* number) {
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, *number);
  return result.ec == std::errc() && result.ptr == end;
}

double Number(const Attribute& attribute) {
  double number{};
  if (!Parse(attribute.value, &number) || !std::isfinite(number))
    throw InvalidValue(Message("$$$/standin/Layout/NoNumber=%1=\"%2\" is not a number",
                               {attribute.name, attribute.value}));
  return number;
}

/// A whole number from 1 to `max`.
unsigned Count(const Attribute& attribute, unsigned max) {
  unsigned count{};
  if (!Parse(attribute.value, &count) || count < 1 || count > max)
    throw InvalidValue(
        Message("$$$/standin/Layout/NoCount=%1=\"%2\" is not a whole number from 1 to %3",
                {attribute.name, attribute.value, std::to_string(max)}));
  return count;
}

/// A node that holds a token until it is destroyed.
template <class Node>
class LiveNode final : public Node {
 public:
  static boost::intrusive_ptr<Node> Make(const LiveToken& token) {
    return boost::intrusive_ptr<Node>(new LiveNode(token));
  }

 private:
  explicit LiveNode(const LiveToken& nodeToken) : token(nodeToken) {}

  LiveToken token;
};

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

enum class Presence { kOptional, kRequired };
using enum Presence;

/// An attribute of an element.
struct AttributeRule {
  std::string_view name;
  Presence presence;
  /// Sets the value on the element's node. Throws InvalidValue.
  void (*apply)(UI_Node& node, const Attribute& attribute);
};

/// An element of layouts.
struct Element {
  std::string_view name;
  boost::intrusive_ptr<UI_Node> (*make)(const LiveToken& token);
  std::span<const AttributeRule> attributes;
};

/// Calls a setter of class `Node` with the attribute's value.
template <class Node, auto kSet, auto kRead>
void Apply(UI_Node& node, const Attribute& attribute) {
  (static_cast<Node&>(node).*kSet)(kRead(attribute));
}

constexpr auto kSetId = Apply<UI_Node, &UI_Node::UI_SetNodeID, Text>;
constexpr auto kSetCaption = Apply<UI_ControlView, &UI_ControlView::SetCaption, Caption>;
constexpr auto kSetHelp = Apply<UI_ControlView, &UI_ControlView::SetHelp, Text>;
constexpr auto kSetDisabledHelp = Apply<UI_ControlView, &UI_ControlView::SetDisabledHelp, Text>;
constexpr auto kSetTitle = Apply<UI_Panel, &UI_Panel::SetTitle, Caption>;
constexpr auto kSetBuddy = Apply<UI_StaticText, &UI_StaticText::SetBuddy, Text>;
constexpr auto kSetRadioGroup = Apply<UI_RadioButton, &UI_RadioButton::SetGroup, Text>;
constexpr auto kSetNumber = Apply<UI_UnitNumberEdit, &UI_UnitNumberEdit::SetNumber, Number>;

constexpr unsigned kMaxSide = 32767;

void SetWidth(UI_Node& node, const Attribute& attribute) {
  const auto width = static_cast<float>(Count(attribute, kMaxSide));
  node.UI_SetLocalRectF({0, 0, width, node.UI_GetLocalRectF().bottom});
}

void SetHeight(UI_Node& node, const Attribute& attribute) {
  const auto height = static_cast<float>(Count(attribute, kMaxSide));
  node.UI_SetLocalRectF({0, 0, node.UI_GetLocalRectF().right, height});
}

/// The reader sets the initial focus after it has read all nodes.
void AcceptFocus(UI_Node&, const Attribute&) {}

void SetColumns(UI_Node& node, const Attribute& attribute) {
  auto& panel = static_cast<UI_Panel&>(node);
  panel.SetArrangement(PanelArrangement::kGrid);
  panel.SetColumnCount(Count(attribute, UI_Panel::kMaxColumns));
}

constexpr AttributeRule kSheetAttributes[] = {
    {"focus", kOptional, AcceptFocus},
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
    {"columns", kOptional, SetColumns},  // one by default
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

constexpr Element kSheet = {"sheet", Make<UI_Layout>, kSheetAttributes};
constexpr Element kElements[] = {
    {"column", MakePanel<PanelArrangement::kColumn>, kPanelAttributes},
    {"row", MakePanel<PanelArrangement::kRow>, kPanelAttributes},
    {"grid", MakePanel<PanelArrangement::kGrid>, kGridAttributes},
    {"group", MakePanel<PanelArrangement::kColumn>, kGroupAttributes},
    {"space", MakePanel<PanelArrangement::kColumn>, {}},
    {"label", Make<UI_StaticText>, kLabelAttributes},
    {"number", Make<UI_UnitNumberEdit>, kNumberAttributes},
    {"checkbox", Make<UI_Checkbox>, kButtonAttributes},
    {"radio", Make<UI_RadioButton>, kRadioAttributes},
    {"button", Make<UI_Button>, kButtonAttributes},
    {"text-button", Make<UI_TextButton>, kButtonAttributes},
};

/// The row with this name, or null.
template <typename Row>
const Row* FindByName(std::span<const Row> rows, std::string_view name) {
  const auto row = std::find_if(rows.begin(), rows.end(),
                                [name](const Row& candidate) { return candidate.name == name; });
  return row == rows.end() ? nullptr : &*row;
}

class Reader {
 public:
  Reader(std::string text, const std::filesystem::path& file, const LiveToken& nodeToken)
      : original(text), parsed(std::move(text)), file(file), token(nodeToken) {}

  SheetTree Read();

 private:
  boost::intrusive_ptr<UI_Node> MakeNode(const pugi::xml_node& xml, const Element& element);
  void AddChildren(const pugi::xml_node& xml, UI_Node& parent);
  void ApplyAttributes(const pugi::xml_node& xml, const Element& element, UI_Node& node);

  [[noreturn]] void Refuse(size_t offset, const std::string& reason) const;
  [[noreturn]] void Refuse(const char* position, const std::string& reason) const {
    Refuse(static_cast<size_t>(position - parsed.data()), reason);
  }

  const std::string original;  // to count lines; the parser changes the other copy
  std::string parsed;
  const std::filesystem::path& file;
  const LiveToken& token;
  boost::container::flat_map<std::string_view, UI_Node*> nodes;  // by ID
};

void Reader::Refuse(size_t offset, const std::string& reason) const {
  const auto end =
      original.begin() + static_cast<std::ptrdiff_t>(std::min(offset, original.size()));
  const auto line = static_cast<size_t>(std::count(original.begin(), end, '\n')) + 1;
  throw nrvcore::FileError(file, line, reason);
}

SheetTree Reader::Read() {
  pugi::xml_document document;
  const pugi::xml_parse_result result = document.load_buffer_inplace(
      parsed.data(), parsed.size(), pugi::parse_default, pugi::encoding_utf8);
  if (!result) Refuse(static_cast<size_t>(result.offset), result.description());
  const pugi::xml_node root = document.document_element();
  if (root.name() != kSheet.name)
    Refuse(root.name(), Message("$$$/standin/Layout/Root=<%1> instead of <sheet>", {root.name()}));

  SheetTree tree;
  tree.view = LiveNode<UI_SubView>::Make(token);
  tree.layout = boost::static_pointer_cast<UI_Layout>(MakeNode(root, kSheet));
  tree.view->UI_SetLocalRectF(tree.layout->UI_GetLocalRectF());
  tree.view->ChildPushBack(tree.layout);
  AddChildren(root, *tree.layout);
  const auto focus = nodes.find(root.attribute("focus").value());
  if (focus != nodes.end()) tree.initialFocus = focus->second;
  return tree;
}

void Reader::AddChildren(const pugi::xml_node& xml, UI_Node& parent) {
  for (const pugi::xml_node& child : xml.children()) {
    if (child.type() != pugi::node_element)
      Refuse(child.value(), Message("$$$/standin/Layout/Text=text between the elements"));
    const auto* const element = FindByName(std::span<const Element>(kElements), child.name());
    if (!element)
      Refuse(child.name(),
             Message("$$$/standin/Layout/Element=unknown element <%1>", {child.name()}));
    const boost::intrusive_ptr<UI_Node> node = MakeNode(child, *element);
    parent.ChildPushBack(node);
    AddChildren(child, *node);
  }
}

boost::intrusive_ptr<UI_Node> Reader::MakeNode(const pugi::xml_node& xml, const Element& element) {
  boost::intrusive_ptr<UI_Node> node = element.make(token);
  ApplyAttributes(xml, element, *node);
  const pugi::xml_attribute id = xml.attribute("id");
  if (id && !nodes.emplace(id.value(), node.get()).second)
    Refuse(id.name(),
           Message("$$$/standin/Layout/SecondId=a second node with the ID %1", {id.value()}));
  return node;
}

void Reader::ApplyAttributes(const pugi::xml_node& xml, const Element& element, UI_Node& node) {
  for (const pugi::xml_attribute& attribute : xml.attributes()) {
    const char* const name = attribute.name();
    const AttributeRule* const rule = FindByName(element.attributes, name);
    if (!rule)
      Refuse(name,
             Message("$$$/standin/Layout/Attribute=<%1> has no attribute %2", {xml.name(), name}));
    try {
      rule->apply(node, {name, attribute.value()});
    } catch (const InvalidValue& error) {
      Refuse(name, error.what());
    }
  }
  for (const AttributeRule& rule : element.attributes)
    if (rule.presence == kRequired && !xml.attribute(rule.name.data()))
      Refuse(xml.name(), Message("$$$/standin/Layout/Missing=<%1> needs the attribute %2",
                                 {xml.name(), rule.name}));
}

}  // namespace

SheetTree ParseLayout(std::string text, const std::filesystem::path& file, const LiveToken& token) {
  return Reader(std::move(text), file, token).Read();
}

SheetTree ReadLayout(const std::filesystem::path& file, const LiveToken& token) {
  return ParseLayout(nrvcore::ReadFile(file), file, token);
}

}  // namespace standin
