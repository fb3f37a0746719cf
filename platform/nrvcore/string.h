#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "platform/nrvcore/export.h"

namespace nrvcore {

/// A string that one image may create and another destroy: this library allocates and releases all
/// memory. A short text, such as a node ID, is stored in the object; copies of a longer one share
/// it, so copying never fails.
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

  /// Terminated; valid until the string is changed or destroyed.
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
    uint8_t length = 0;  // kShared for a text that does not fit
  };

  bool IsShared() const noexcept { return content.length == kShared; }
  std::basic_string_view<Char> SharedView() const noexcept;
  void AddReference() noexcept;
  void Release() noexcept;

  Content content;
};

extern template class StringT<char>;
extern template class StringT<char16_t>;

/// Bytes: node IDs (ASCII) and UTF-8.
using String = StringT<char>;
/// Titles, theme names and all other texts for users.
using UTF16String = StringT<char16_t>;

}  // namespace nrvcore
