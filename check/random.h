#pragma once

#include <cstddef>
#include <cstring>
#include <iterator>
#include <random>
#include <string>

namespace check {

using Random = std::mt19937_64;

/// From 0 to `end` - 1.
inline size_t Below(Random& random, size_t end) {
  return random() % end;
}

/// True once in `times` on the average.
inline bool Once(Random& random, size_t times) {
  return Below(random, times) == 0;
}

template <typename Choices>
const auto& Pick(Random& random, const Choices& choices) {
  return *(std::begin(choices) + static_cast<std::ptrdiff_t>(Below(random, std::size(choices))));
}

template <typename Record>
std::string Bytes(const Record& record) {
  return {reinterpret_cast<const char*>(&record), sizeof record};
}

/// The same with a few bytes or longer pieces changed, lost, doubled or out of place.
std::string Damaged(Random& random, std::string bytes);

}  // namespace check
