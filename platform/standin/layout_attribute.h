#pragma once

#include <functional>
#include <string>

#include "platform/nrvcore/string.h"

namespace standin {

/// The value of one attribute in a layout file, read as what the element expects. What does not
/// read so goes to `refuse`, which throws.
class LayoutAttribute {
 public:
  using Refuse = std::function<void(const std::string& reason)>;

  /// The texts must last as long as this object.
  LayoutAttribute(const char* name, const char* value, Refuse refusal);

  /// A name of letters, digits and underscores.
  nrvcore::String AsName() const;
  /// A localisation key, "$$$/" path "=" text, in the user's language.
  nrvcore::UTF16String AsCaption() const;
  double AsNumber() const;
  /// A whole number from 1 to `last`.
  unsigned AsCount(unsigned last) const;

 private:
  [[noreturn]] void RefuseAs(const std::string& what) const;

  const char* name;
  const char* value;
  Refuse refuse;
};

}  // namespace standin
