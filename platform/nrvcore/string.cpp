#include "platform/nrvcore/string.h"

#include <algorithm>
#include <atomic>
#include <string>

namespace nrvcore {

template <class Char>
struct StringT<Char>::SharedText {
  const std::basic_string<Char> text;
  std::atomic<size_t> references = 1;
};

template <class Char>
StringT<Char>::StringT(const Char* characters)
    : StringT(characters ? std::basic_string_view<Char>(characters)
                         : std::basic_string_view<Char>()) {}

template <class Char>
StringT<Char>::StringT(std::basic_string_view<Char> characters) {
  if (characters.size() <= kShortText) {
    std::copy(characters.begin(), characters.end(), content.text);
    content.length = static_cast<uint8_t>(characters.size());
  } else {
    content.shared = new SharedText{std::basic_string<Char>(characters)};
    content.length = kShared;
  }
}

template <class Char>
std::basic_string_view<Char> StringT<Char>::SharedView() const noexcept {
  return content.shared->text;
}

template <class Char>
void StringT<Char>::AddReference() noexcept {
  content.shared->references.fetch_add(1, std::memory_order_relaxed);
}

template <class Char>
void StringT<Char>::Release() noexcept {
  if (content.shared->references.fetch_sub(1, std::memory_order_acq_rel) == 1)
    delete content.shared;
}

template <class Char>
void StringT<Char>::Append(std::basic_string_view<Char> characters) {
  std::basic_string<Char> longer(View());
  longer.append(characters);
  *this = StringT(std::basic_string_view<Char>(longer));
}

template class StringT<char>;
template class StringT<char16_t>;

}  // namespace nrvcore
