#include "check/caller_data.h"

#include <bit>
#include <boost/preprocessor/seq/for_each.hpp>
#include <boost/preprocessor/stringize.hpp>
#include <cstddef>
#include <cstdio>
#include <cstring>

#include "check/findings.h"

namespace check {
namespace {

/// The text of the value at an address; the bytes of an array stand one by one.
template <typename Value>
std::string ValueAt(const char* address) {
  if constexpr (std::is_array_v<Value>) {
    std::string text = ValueAt<std::remove_extent_t<Value>>(address);
    for (size_t i = 1; i < sizeof(Value); ++i)
      text += ' ' + ValueAt<std::remove_extent_t<Value>>(address + i);
    return text;
  } else {
    Value value;
    std::memcpy(&value, address, sizeof value);
    if constexpr (!std::is_same_v<Value, float>) return std::to_string(value);
    char text[40];
    std::snprintf(text, sizeof text, "%.9g (0x%08X)", static_cast<double>(value),
                  std::bit_cast<unsigned>(static_cast<float>(value)));
    return text;
  }
}

struct Field {
  const char* name;
  size_t offset;
  size_t size;
  std::string (*valueAt)(const char* address);
};

template <typename Value>
constexpr Field FieldOf(const char* name, size_t offset) {
  return {name, offset, sizeof(Value), &ValueAt<Value>};
}

#define FIELD(r, unused, member) \
  FieldOf<decltype(CallerData().member)>(BOOST_PP_STRINGIZE(member), offsetof(CallerData, member)),

constexpr Field kFields[] = {BOOST_PP_SEQ_FOR_EACH(
    FIELD, ,
    (record.reserved0)(record.isColor)(record.deleteRaster)(record.keepHorizontal)(
        record.reserved11)(record.tilesAcross)(record.tilesDown)(record.tileSpacingHorizontal)(
        record.tileSpacingVertical)(record.reserved28)(record.reserved32)(record.tilesAcrossCopy)(
        record.tilesDownCopy)(record.boundsLeft)(record.boundsTop)(record.boundsRight)(
        record.boundsBottom)(record.reserved60)(record.reserved64)(record.newWidth)(
        record.newHeight)(record.sizeUnavailable)(record.reserved77)(state.aspectRatio)(
        state.noOriginalSize)(state.usePercent)(state.reserved6)(state.reserved7))};

}  // namespace

std::string Text(const CallerData& data) {
  std::string text;
  for (const Field& field : kFields)
    text += (text.empty() ? "" : ", ") + std::string(field.name) + ' ' +
            field.valueAt(reinterpret_cast<const char*>(&data) + field.offset);
  return text;
}

void ExpectFields(const CallerData& seen, const CallerData& expected) {
  for (const auto& [name, offset, size, valueAt] : kFields) {
    const char* const bytes = reinterpret_cast<const char*>(&seen) + offset;
    const char* const wanted = reinterpret_cast<const char*>(&expected) + offset;
    if (std::memcmp(bytes, wanted, size) != 0)
      Fail(name + (": expected " + valueAt(wanted)) + ", seen " + valueAt(bytes));
  }
}

}  // namespace check
