#pragma once

#include <charconv>
#include <version>

#ifndef __cpp_lib_to_chars
#include <cerrno>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <string>
#include <type_traits>
#endif

namespace nrvui::controls {

/// std::from_chars for floating-point numbers, which the C++ library of Clang 14 lacks.
template <typename Number>
std::from_chars_result ReadNumber(const char* begin, const char* end, Number& value) {
#ifdef __cpp_lib_to_chars
  return std::from_chars(begin, end, value);
#else
  static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
  // strtod also accepts leading blanks, a plus sign and hexadecimal numbers.
  const std::string text(begin, end);
  const std::string number = text.substr(0, text.find_first_of("xX"));
  if (number.empty() || number.find_first_of(" \t\n\v\f\r+") == 0)
    return {begin, std::errc::invalid_argument};
  char* stop = nullptr;
  Number read;
  errno = 0;
  if constexpr (std::is_same_v<Number, float>) {
    read = strtof_l(number.c_str(), &stop, plain);
  } else {
    read = strtod_l(number.c_str(), &stop, plain);
  }
  const char* const after = begin + (stop - number.c_str());
  if (after == begin) return {begin, std::errc::invalid_argument};
  // ERANGE is also set for subnormal numbers, which are valid.
  if (errno == ERANGE && (read == 0 || std::isinf(read)))
    return {after, std::errc::result_out_of_range};
  value = read;
  return {after, std::errc()};
#endif
}

}  // namespace nrvui::controls
