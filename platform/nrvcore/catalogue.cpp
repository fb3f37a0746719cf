#include "platform/nrvcore/catalogue.h"

#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace nrvcore::config {
namespace {

constexpr std::uintmax_t kLargestFile = 1 << 24;

/// As gettext's manual has it, in the byte order of this machine.
struct Header {
  uint32_t magic;
  uint32_t revision;
  uint32_t count;
  uint32_t keys;   // offset of a table of `count` places
  uint32_t texts;  // and of theirs
  uint32_t hashSize;
  uint32_t hashes;
};

struct Place {
  uint32_t length;
  uint32_t offset;
};

constexpr uint32_t kMagic = 0x950412de;

template <typename Value>
Value At(std::string_view bytes, std::size_t offset) {
  Value value;
  std::memcpy(&value, bytes.data() + offset, sizeof value);
  return value;
}

bool HoldsTexts(std::string_view bytes, uint32_t table, uint32_t count) {
  if (table > bytes.size() || count > (bytes.size() - table) / sizeof(Place)) return false;
  for (uint32_t i = 0; i < count; ++i) {
    const auto place = At<Place>(bytes, table + i * sizeof(Place));
    const std::size_t end = std::size_t(place.offset) + place.length;
    if (end >= bytes.size() || bytes[end] != '\0') return false;
  }
  return true;
}

/// The catalogue describes itself in the text of the empty key, which is the first.
bool IsUtf8(std::string_view bytes, const Header& header) {
  if (header.count == 0 || At<Place>(bytes, header.keys).length > 0) return false;
  const auto place = At<Place>(bytes, header.texts);
  return bytes.substr(place.offset, place.length).find("charset=UTF-8\n") != bytes.npos;
}

}  // namespace

bool IsSoundCatalogue(const std::filesystem::path& file) {
  std::error_code error;
  if (!is_regular_file(file, error) || file_size(file, error) > kLargestFile) return false;
  std::ifstream stream(file, std::ios::binary);
  const std::string bytes(std::istreambuf_iterator<char>(stream), {});
  if (bytes.size() < sizeof(Header)) return false;
  const auto header = At<Header>(bytes, 0);
  return header.magic == kMagic && header.revision == 0 &&
         HoldsTexts(bytes, header.keys, header.count) &&
         HoldsTexts(bytes, header.texts, header.count) && header.hashSize == 0 &&
         IsUtf8(bytes, header);
}

}  // namespace nrvcore::config
