#include "platform/nrvcore/string.h"

namespace nrvcore {

template <class Char>
StringT<Char>::StringT() noexcept = default;

template <class Char>
StringT<Char>::StringT(const Char* characters) {
  if (characters != nullptr) text = characters;
}

template <class Char>
StringT<Char>::StringT(std::basic_string_view<Char> characters) : text(characters) {}

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
  return text;
}

template <class Char>
bool StringT<Char>::IsEmpty() const noexcept {
  return text.empty();
}

template <class Char>
void StringT<Char>::Append(std::basic_string_view<Char> characters) {
  text.append(characters);
}

template class StringT<char>;
template class StringT<char16_t>;

}  // namespace nrvcore
