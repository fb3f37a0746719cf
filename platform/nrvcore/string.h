#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "platform/nrvcore/export.h"

namespace nrvcore {

/// A string value that may be made in one image and destroyed in another: all memory is taken and
/// released inside this library. Short texts, as node IDs are, stand in the string
/// itself; copies of longer ones share the text. So copying never fails.
template <class Char>
class NRV_EXPORT StringT {
 public:
  StringT() noexcept = default;
  StringT(const Char* characters);  // null counts as empty
  explicit StringT(std::basic_string_view<Char> characters);
  StringT(const StringT& other) noexcept : content(other.content) {
    if (IsShared()) Hold();
  }
  StringT(StringT&& other) noexcept : content(std::exchange(other.content, {})) {}
  ~StringT() {
    if (IsShared()) LetGo();
  }
  StringT& operator=(StringT other) noexcept {
    std::swap(content, other.content);
    return *this;
  }

  /// Terminated, and valid until the string is changed or destroyed.
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
    uint8_t length = 0;  // kShared: of a text that is too long to stand here
  };

  bool IsShared() const noexcept { return content.length == kShared; }
  std::basic_string_view<Char> SharedView() const noexcept;
  void Hold() noexcept;
  void LetGo() noexcept;

  Content content;
};

extern template class StringT<char>;
extern template class StringT<char16_t>;

/// Bytes: node IDs (ASCII) and UTF-8.
using String = StringT<char>;
/// Titles, theme names and everything that a person reads.
using UTF16String = StringT<char16_t>;

}  // namespace nrvcore
