#include "check/random.h"

#include <cstdint>

namespace check {

std::string Damaged(Random& random, std::string bytes) {
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

}  // namespace check
