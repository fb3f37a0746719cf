#pragma once

#include "platform/nrvcore/string.h"

namespace nrvcore::config {

/// What takes the place of %1 to %4 in a localised text. An empty value leaves no trace.
class NRV_EXPORT ReplacementValue {
 public:
  ReplacementValue() noexcept;
  explicit ReplacementValue(UTF16String replacement);
  ReplacementValue(const ReplacementValue& other);
  ~ReplacementValue();
  ReplacementValue& operator=(const ReplacementValue& other);

  const UTF16String& Text() const noexcept;

 private:
  UTF16String text;
};

}  // namespace nrvcore::config
