#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <random>
#include <string>

namespace testkit {

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
inline std::string Damaged(Random& random, std::string bytes) {
  for (size_t times = 1 + Below(random, 4); times > 0 && !bytes.empty(); --times) {
    const size_t place = Below(random, bytes.size());
    const size_t length = Below(random, Once(random, 4) ? bytes.size() : 8);
    const std::string number = std::to_string(static_cast<int64_t>(random()));
    switch (Below(random, 4)) {
      case 0:
        bytes[place] = static_cast<char>(random());
        break;
      case 1:
        bytes.erase(place, Once(random, 2) ? bytes.npos : length);
        break;
      case 2:
        bytes.insert(Below(random, bytes.size()), bytes.substr(place, length));
        break;
      default:
        bytes.replace(place, Below(random, number.size()), number);
    }
  }
  return bytes;
}

}  // namespace testkit
