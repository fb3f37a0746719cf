#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <span>
#include <stdexcept>
#include <string_view>

#include "platform/nrvcore/string.h"
#include "platform/nrvui/ui_node.h"
#include "platform/standin/live_token.h"

namespace standin {

/// The value of an attribute is of another type than the element expects; what() says so.
class InvalidValue : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The value of one attribute in a layout file, read as the type that the element expects. The
/// functions throw InvalidValue.
class LayoutAttribute {
 public:
  /// The texts must outlive this object.
  LayoutAttribute(const char* attributeName, const char* attributeValue)
      : name(attributeName), value(attributeValue) {}

  /// A name of letters, digits and underscores.
  nrvcore::String AsName() const;
  /// A localisation key, "$$$/" path "=" text.
  const char* AsKey() const;
  /// The key's text in the user's language.
  nrvcore::UTF16String AsCaption() const;
  double AsNumber() const;
  /// A whole number from 1 to `last`.
  unsigned AsCount(unsigned last) const;

 private:
  /// `key` is a message; its %1 and %2 are the attribute and its value.
  InvalidValue Invalid(const char* key, std::string_view limit = {}) const;

  const char* name;
  const char* value;
};

enum class Presence { kOptional, kRequired };

struct AttributeRule {
  std::string_view name;
  Presence presence;
  /// Sets the value on the element's node.
  void (*apply)(nrvui::ui::UI_Node& node, const LayoutAttribute& value);
};

/// An element of layouts, and how its node is made.
struct LayoutElement {
  std::string_view name;
  bool holdsOthers;  // whether it may contain elements
  boost::intrusive_ptr<nrvui::ui::UI_Node> (*make)(const LiveToken& token);
  std::span<const AttributeRule> attributes;
};

/// The root of every layout; its node is the layout node.
const LayoutElement& SheetElement();

/// An element below the root; null for an unknown name.
const LayoutElement* FindLayoutElement(std::string_view name);

/// Null for an attribute that the element does not accept.
const AttributeRule* FindAttributeRule(const LayoutElement& element, std::string_view name);

}  // namespace standin
