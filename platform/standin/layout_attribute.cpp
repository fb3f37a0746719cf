#include "platform/standin/layout_attribute.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "platform/nrvcore/localizer.h"
#include "platform/nrvcore/unicode.h"

namespace standin {
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

LayoutAttribute::LayoutAttribute(const char* name, const char* value, Refuse refusal)
    : name(name), value(value), refuse(std::move(refusal)) {
  if (!nrvcore::utility::IsValidUTF8(value)) refuse(std::string(name) + " is not UTF-8");
}

void LayoutAttribute::RefuseAs(const std::string& what) const {
  refuse(std::string(name) + "=\"" + value + "\" is " + what);
  std::abort();  // refuse throws
}

nrvcore::String LayoutAttribute::AsName() const {
  const std::string_view text = value;
  if (text.empty() || !std::all_of(text.begin(), text.end(), IsNameCharacter))
    RefuseAs("no name of letters, digits and underscores");
  return nrvcore::String(text);
}

nrvcore::UTF16String LayoutAttribute::AsCaption() const {
  const std::string_view key = value;
  const size_t equals = key.find('=');
  if (!key.starts_with("$$$/") || equals == std::string_view::npos || equals + 1 == key.size())
    RefuseAs("no localisation key of the form $$$/path=text");
  return nrvcore::config::Localizer::Get().Localize(value);
}

double LayoutAttribute::AsNumber() const {
  double number = 0;
  if (!Parse(value, &number) || !std::isfinite(number)) RefuseAs("no number");
  return number;
}

unsigned LayoutAttribute::AsCount(unsigned last) const {
  unsigned count = 0;
  if (!Parse(value, &count) || count < 1 || count > last)
    RefuseAs("no whole number from 1 to " + std::to_string(last));
  return count;
}

}  // namespace standin
