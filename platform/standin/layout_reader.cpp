#include "platform/standin/layout_reader.h"

#include <algorithm>
#include <boost/container/flat_map.hpp>
#include <iterator>
#include <optional>
#include <pugixml.hpp>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/nrvcore/file.h"
#include "platform/nrvcore/localizer.h"
#include "platform/standin/layout_elements.h"
#include "platform/standin/live_token.h"

namespace standin {
namespace {

using nrvcore::config::Message;
using nrvui::ui::UI_Layout;
using nrvui::ui::UI_Node;
using nrvui::ui::UI_SubView;

class Reader {
 public:
  Reader(std::string text, const std::filesystem::path& file, const LiveToken& nodeToken)
      : original(text), parsed(std::move(text)), file(file), token(nodeToken) {}

  SheetTree Read();

 private:
  /// An attribute that names another node.
  struct Reference {
    const char* position;
    std::string_view id;
  };

  boost::intrusive_ptr<UI_Node> MakeNode(const pugi::xml_node& xml, const LayoutElement& element);
  void AddChildren(const pugi::xml_node& xml, UI_Node& parent);
  void ApplyAttributes(const pugi::xml_node& xml, const LayoutElement& element, UI_Node& node);
  void NoteId(const pugi::xml_attribute& attribute, UI_Node& node);
  boost::intrusive_ptr<UI_Node> Resolve(const Reference& reference) const;

  [[noreturn]] void Refuse(size_t offset, const std::string& reason) const;
  [[noreturn]] void Refuse(const char* position, const std::string& reason) const {
    Refuse(static_cast<size_t>(position - parsed.data()), reason);
  }

  const std::string original;  // the parser changes the other one
  std::string parsed;
  const std::filesystem::path& file;
  const LiveToken& token;
  boost::container::flat_map<std::string_view, UI_Node*> nodes;
  std::vector<Reference> buddies;
  std::optional<Reference> initialFocus;
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
  const pugi::xml_node root = document.first_child();
  const auto offset = [](const pugi::xml_node& node) {
    return static_cast<size_t>(std::max<std::ptrdiff_t>(node.offset_debug(), 0));
  };
  if (std::string_view(root.name()) != SheetElement().name)
    Refuse(offset(root), Message("$$$/standin/Layout/Root=<%1> instead of <sheet>", {root.name()}));
  if (const pugi::xml_node second = root.next_sibling())
    Refuse(offset(second), Message("$$$/standin/Layout/AfterEnd=content after the end of <sheet>"));

  SheetTree tree;
  tree.view = LiveNode<UI_SubView>::Make(token);
  tree.layout = boost::static_pointer_cast<UI_Layout>(MakeNode(root, SheetElement()));
  tree.view->UI_SetLocalRectF(tree.layout->UI_GetLocalRectF());
  tree.view->ChildPushBack(tree.layout);
  AddChildren(root, *tree.layout);
  for (const Reference& buddy : buddies) Resolve(buddy);
  if (initialFocus) tree.initialFocus = Resolve(*initialFocus);
  return tree;
}

void Reader::AddChildren(const pugi::xml_node& xml, UI_Node& parent) {
  for (const pugi::xml_node& child : xml.children()) {
    if (child.type() != pugi::node_element)
      Refuse(child.value(), Message("$$$/standin/Layout/Text=text between the elements"));
    const LayoutElement* const element = FindLayoutElement(child.name());
    if (!element)
      Refuse(child.name(),
             Message("$$$/standin/Layout/Element=unknown element <%1>", {child.name()}));
    const boost::intrusive_ptr<UI_Node> node = MakeNode(child, *element);
    parent.ChildPushBack(node);
    AddChildren(child, *node);
  }
}

boost::intrusive_ptr<UI_Node> Reader::MakeNode(const pugi::xml_node& xml,
                                               const LayoutElement& element) {
  if (!element.holdsOthers && xml.first_child())
    Refuse(xml.name(), Message("$$$/standin/Layout/Content=<%1> must be empty", {xml.name()}));
  boost::intrusive_ptr<UI_Node> node = element.make(token);
  ApplyAttributes(xml, element, *node);
  return node;
}

void Reader::ApplyAttributes(const pugi::xml_node& xml, const LayoutElement& element,
                             UI_Node& node) {
  for (const pugi::xml_attribute& attribute : xml.attributes()) {
    const char* const name = attribute.name();
    const AttributeRule* const rule = FindAttributeRule(element, name);
    if (!rule)
      Refuse(name,
             Message("$$$/standin/Layout/Attribute=<%1> has no attribute %2", {xml.name(), name}));
    if (xml.attribute(name) != attribute)
      Refuse(name, Message("$$$/standin/Layout/Twice=%1 is given twice", {name}));
    try {
      rule->apply(node, {name, attribute.value()});
    } catch (const InvalidValue& error) {
      Refuse(name, error.what());
    }
    if (std::string_view(name) == "id") NoteId(attribute, node);
    if (std::string_view(name) == "for") buddies.push_back({name, attribute.value()});
    if (std::string_view(name) == "focus") initialFocus = Reference{name, attribute.value()};
  }
  for (const AttributeRule& rule : element.attributes)
    if (rule.presence == Presence::kRequired && !xml.attribute(rule.name.data()))
      Refuse(xml.name(), Message("$$$/standin/Layout/Missing=<%1> needs the attribute %2",
                                 {xml.name(), rule.name}));
}

void Reader::NoteId(const pugi::xml_attribute& attribute, UI_Node& node) {
  if (!nodes.emplace(attribute.value(), &node).second)
    Refuse(attribute.name(), Message("$$$/standin/Layout/SecondId=a second node with the ID %1",
                                     {attribute.value()}));
}

boost::intrusive_ptr<UI_Node> Reader::Resolve(const Reference& reference) const {
  const auto found = nodes.find(reference.id);
  if (found == nodes.end())
    Refuse(reference.position,
           Message("$$$/standin/Layout/NoNode=no node has the ID \"%1\"", {reference.id}));
  return found->second;
}

}  // namespace

SheetTree ParseLayout(std::string text, const std::filesystem::path& file, const LiveToken& token) {
  return Reader(std::move(text), file, token).Read();
}

SheetTree ReadLayout(const std::filesystem::path& file, const LiveToken& token) {
  return ParseLayout(nrvcore::ReadFile(file), file, token);
}

}  // namespace standin
