#include "platform/nrvcore/string.h"

namespace nrvcore {

template <class Char>
StringT<Char>::StringT() noexcept = default;

template <class Char>
StringT<Char>::StringT(const Char* characters)
    : StringT(characters ? std::basic_string_view<Char>(characters)
                         : std::basic_string_view<Char>()) {}

template <class Char>
StringT<Char>::StringT(std::basic_string_view<Char> characters) {
  if (!characters.empty()) text = std::make_shared<const std::basic_string<Char>>(characters);
}

template <class Char>
StringT<Char>::StringT(const StringT& other) = default;

template <class Char>
StringT<Char>::StringT(StringT&& other) noexcept = default;

template <class Char>
StringT<Char>::~StringT() = default;

template <class Char>
StringT<Char>& StringT<Char>::operator=(const StringT& other) = default;

template <class Char>
StringT<Char>& StringT<Char>::operator=(StringT&& other) noexcept = default;

template <class Char>
std::basic_string_view<Char> StringT<Char>::View() const noexcept {
  static constexpr Char kEnd[] = {0};  // so that an empty text is terminated like any other
  return text ? std::basic_string_view<Char>(*text) : std::basic_string_view<Char>(kEnd, 0);
}

template <class Char>
bool StringT<Char>::IsEmpty() const noexcept {
  return text == nullptr;
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
