#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/nrvcore/export.h"

namespace nrvcore {

/// A string value that may be made in one image and destroyed in another: every member lives in
/// this library, so its memory is always taken and released by the same allocator. Copies share
/// the text, since node IDs are copied all the time.
template <class Char>
class NRV_EXPORT StringT {
 public:
  StringT() noexcept;
  StringT(const Char* characters);  // NOLINT: literals are strings; null counts as empty
  explicit StringT(std::basic_string_view<Char> characters);
  StringT(const StringT& other);
  StringT(StringT&& other) noexcept;
  ~StringT();
  StringT& operator=(const StringT& other);
  StringT& operator=(StringT&& other) noexcept;

  /// Valid until the string is changed or destroyed.
  std::basic_string_view<Char> View() const noexcept;
  bool IsEmpty() const noexcept;
  void Append(std::basic_string_view<Char> characters);

  friend bool operator==(const StringT& a, const StringT& b) { return a.View() == b.View(); }

 private:
  std::shared_ptr<const std::basic_string<Char>> text;  // null when empty
};

extern template class StringT<char>;
extern template class StringT<char16_t>;

/// Bytes: node IDs (ASCII) and UTF-8.
using String = StringT<char>;
/// Titles, theme names and everything that a person reads.
using UTF16String = StringT<char16_t>;

}  // namespace nrvcore
