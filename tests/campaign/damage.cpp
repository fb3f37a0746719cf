#include "campaign/damage.h"

namespace campaign {

std::string Damaged(Random& random, std::string bytes) {
  for (size_t times = 1 + Below(random, 4); times > 0 && !bytes.empty(); --times) {
    const size_t place = Below(random, bytes.size());
    const size_t length = Once(random, 4) ? Below(random, bytes.size()) : Below(random, 8);
    const std::string piece = bytes.substr(place, length);
    switch (Below(random, 7)) {
      case 0:
        bytes[place] = static_cast<char>(random());
        break;
      case 1:
        bytes[place] = static_cast<char>(bytes[place] ^ (1 << Below(random, 8)));
        break;
      case 2:
        bytes.resize(place);
        break;
      case 3:
        bytes.erase(place, length);
        break;
      case 4:
        bytes.insert(Below(random, bytes.size()), piece);
        break;
      case 5:
        bytes.replace(Below(random, bytes.size()), length, piece);
        break;
      default:
        bytes.insert(place, std::to_string(static_cast<int64_t>(random())));
    }
  }
  return bytes;
}

}  // namespace campaign
