#include "platform/nrvcore/replacement_value.h"

#include <utility>

namespace nrvcore::config {

ReplacementValue::ReplacementValue() noexcept = default;
ReplacementValue::ReplacementValue(UTF16String replacement) : text(std::move(replacement)) {}
ReplacementValue::ReplacementValue(const ReplacementValue& other) = default;
ReplacementValue::~ReplacementValue() = default;
ReplacementValue& ReplacementValue::operator=(const ReplacementValue& other) = default;

const UTF16String& ReplacementValue::Text() const noexcept {
  return text;
}

}  // namespace nrvcore::config
