#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "platform/nrvcore/export.h"

namespace nrvcore {

/// A string that one image may create and another destroy: only this library allocates and releases
/// its memory. Short texts, such as node IDs, are stored in the object. Copies of longer texts
/// share one allocation, with an atomic count of references, so copying never fails.
template <class Char>
class NRV_EXPORT StringT {
 public:
  StringT() noexcept = default;
  StringT(const Char* characters);  // null is an empty string
  explicit StringT(std::basic_string_view<Char> characters);
  StringT(const StringT& other) noexcept : content(other.content) {
    if (IsShared()) AddReference();
  }
  StringT(StringT&& other) noexcept : content(std::exchange(other.content, {})) {}
  ~StringT() {
    if (IsShared()) Release();
  }
  StringT& operator=(StringT other) noexcept {
    std::swap(content, other.content);
    return *this;
  }

  /// NUL-terminated. Valid until the string is changed or destroyed.
  std::basic_string_view<Char> View() const noexcept {
    return IsShared() ? SharedView() : std::basic_string_view<Char>(content.text, content.length);
  }
  bool IsEmpty() const noexcept { return content.length == 0; }
  void Append(std::basic_string_view<Char> characters);

  friend bool operator==(const StringT& a, const StringT& b) noexcept {
    return a.View() == b.View();
  }

 private:
  struct SharedText;

  static constexpr size_t kShortText = 32 / sizeof(Char) - 1;
  static constexpr uint8_t kShared = 0xFF;

  struct Content {
    union {
      Char text[kShortText + 1] = {};
      SharedText* shared;
    };
    uint8_t length = 0;  // kShared for a text that is too long for `text`
  };

  bool IsShared() const noexcept { return content.length == kShared; }
  std::basic_string_view<Char> SharedView() const noexcept;
  void AddReference() noexcept;
  void Release() noexcept;

  Content content;
};

extern template class StringT<char>;
extern template class StringT<char16_t>;

/// Node IDs (ASCII) and UTF-8 texts.
using String = StringT<char>;
/// Texts for users, and theme names.
using UTF16String = StringT<char16_t>;

}  // namespace nrvcore
