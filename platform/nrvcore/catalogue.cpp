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
  uint32_t hashes;  // offset of a table of `hashSize` numbers of keys, from 1; 0 for a free entry
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

template <typename Value>
bool HoldsTable(std::string_view bytes, uint32_t offset, uint32_t count) {
  return offset <= bytes.size() && count <= (bytes.size() - offset) / sizeof(Value);
}

bool HoldsTexts(std::string_view bytes, uint32_t table, uint32_t count) {
  if (!HoldsTable<Place>(bytes, table, count)) return false;
  for (uint32_t i = 0; i < count; ++i) {
    const auto place = At<Place>(bytes, table + i * sizeof(Place));
    const std::size_t end = std::size_t(place.offset) + place.length;
    if (end >= bytes.size() || bytes[end] != '\0') return false;
  }
  return true;
}

bool IsPrime(uint32_t number) {
  for (uint32_t divisor = 2; uint64_t(divisor) * divisor <= number; ++divisor) {
    if (number % divisor == 0) return false;
  }
  return number > 1;
}

/// gettext steps through the table until it meets a free entry. It meets every entry, and so one
/// that is free, only when the size is a prime.
bool HoldsHashes(std::string_view bytes, const Header& header) {
  if (header.hashSize == 0) return true;
  if (!HoldsTable<uint32_t>(bytes, header.hashes, header.hashSize)) return false;
  bool hasFree = false;
  for (uint32_t i = 0; i < header.hashSize; ++i) {
    const auto key = At<uint32_t>(bytes, header.hashes + i * sizeof(uint32_t));
    if (key > header.count) return false;
    hasFree = hasFree || key == 0;
  }
  return hasFree && IsPrime(header.hashSize);
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
         HoldsTexts(bytes, header.texts, header.count) && HoldsHashes(bytes, header) &&
         IsUtf8(bytes, header);
}

}  // namespace nrvcore::config
