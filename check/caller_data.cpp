#include "check/caller_data.h"

#include <cstddef>
#include <cstdio>
#include <cstring>

#include "check/findings.h"

namespace check {
namespace {

struct Field {
  const char* name;
  size_t offset;
  size_t size;
  enum { kInteger, kFloat, kBytes } type;
};

#define RECORD_FIELD(name, type) \
  { "record." #name, offsetof(CallerData, record.name), sizeof(MosaicParameters::name), type }
#define STATE_FIELD(name, type) \
  { "state." #name, offsetof(CallerData, state.name), sizeof(MosaicDialogState::name), type }

constexpr Field kFields[] = {
    RECORD_FIELD(reserved0, Field::kBytes),
    RECORD_FIELD(isColor, Field::kBytes),
    RECORD_FIELD(deleteRaster, Field::kBytes),
    RECORD_FIELD(keepHorizontal, Field::kBytes),
    RECORD_FIELD(reserved11, Field::kBytes),
    RECORD_FIELD(tilesAcross, Field::kInteger),
    RECORD_FIELD(tilesDown, Field::kInteger),
    RECORD_FIELD(tileSpacingHorizontal, Field::kInteger),
    RECORD_FIELD(tileSpacingVertical, Field::kInteger),
    RECORD_FIELD(reserved28, Field::kInteger),
    RECORD_FIELD(reserved32, Field::kInteger),
    RECORD_FIELD(tilesAcrossCopy, Field::kInteger),
    RECORD_FIELD(tilesDownCopy, Field::kInteger),
    RECORD_FIELD(boundsLeft, Field::kInteger),
    RECORD_FIELD(boundsTop, Field::kInteger),
    RECORD_FIELD(boundsRight, Field::kInteger),
    RECORD_FIELD(boundsBottom, Field::kInteger),
    RECORD_FIELD(reserved60, Field::kInteger),
    RECORD_FIELD(reserved64, Field::kInteger),
    RECORD_FIELD(newWidth, Field::kFloat),
    RECORD_FIELD(newHeight, Field::kFloat),
    RECORD_FIELD(sizeUnavailable, Field::kBytes),
    RECORD_FIELD(reserved77, Field::kBytes),
    STATE_FIELD(aspectRatio, Field::kFloat),
    STATE_FIELD(noOriginalSize, Field::kBytes),
    STATE_FIELD(usePercent, Field::kBytes),
    STATE_FIELD(reserved6, Field::kBytes),
    STATE_FIELD(reserved7, Field::kBytes),
};

std::string ValueOf(const Field& field, const CallerData& data) {
  const char* const bytes = reinterpret_cast<const char*>(&data) + field.offset;
  char text[64];
  int32_t integer = 0;
  float number = 0;
  if (field.type == Field::kBytes) {
    std::string value;
    for (size_t i = 0; i < field.size; ++i) {
      std::snprintf(text, sizeof text, "%s%d", i > 0 ? " " : "", static_cast<uint8_t>(bytes[i]));
      value += text;
    }
    return value;
  }
  std::memcpy(&integer, bytes, sizeof integer);
  std::memcpy(&number, bytes, sizeof number);
  if (field.type == Field::kInteger) {
    std::snprintf(text, sizeof text, "%d", integer);
  } else {
    std::snprintf(text, sizeof text, "%.9g (0x%08X)", static_cast<double>(number),
                  static_cast<unsigned>(integer));
  }
  return text;
}

}  // namespace

std::string Text(const CallerData& data) {
  std::string text;
  for (const Field& field : kFields)
    text += std::string(text.empty() ? "" : ", ") + field.name + " " + ValueOf(field, data);
  return text;
}

void ExpectFields(const CallerData& seen, const CallerData& expected) {
  for (const Field& field : kFields) {
    const auto at = [&](const CallerData& data) {
      return reinterpret_cast<const char*>(&data) + field.offset;
    };
    if (std::memcmp(at(seen), at(expected), field.size) != 0)
      Fail(std::string(field.name) + ": expected " + ValueOf(field, expected) + ", seen " +
           ValueOf(field, seen));
  }
}

}  // namespace check
