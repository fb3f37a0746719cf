#include "studio/caller/record_json.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <charconv>
#include <cmath>
#include <cstring>
#include <string>

#include "studio/base/studio_error.h"

namespace {

enum class Kind { kByte, kFlag, kInt, kFloat };

struct Field {
  const char* name;
  size_t offset;
  Kind kind;
  bool isChoice;  // taken up by the next run
  int count = 1;
};

// Offsets count over the record and the state behind it.
static_assert(offsetof(MosaicChoices, state) == sizeof(MosaicParameters));

#define RECORD_FIELD(field) #field, offsetof(MosaicParameters, field)
#define STATE_FIELD(field) #field, sizeof(MosaicParameters) + offsetof(MosaicDialogState, field)

constexpr Field kFields[] = {
    {RECORD_FIELD(reserved0), Kind::kByte, false, 8},
    {RECORD_FIELD(isColor), Kind::kFlag, true},
    {RECORD_FIELD(deleteRaster), Kind::kFlag, true},
    {RECORD_FIELD(keepHorizontal), Kind::kFlag, true},
    {RECORD_FIELD(reserved11), Kind::kByte, false},
    {RECORD_FIELD(tilesAcross), Kind::kInt, true},
    {RECORD_FIELD(tilesDown), Kind::kInt, true},
    {RECORD_FIELD(tileSpacingHorizontal), Kind::kInt, false},
    {RECORD_FIELD(tileSpacingVertical), Kind::kInt, false},
    {RECORD_FIELD(reserved28), Kind::kInt, false},
    {RECORD_FIELD(reserved32), Kind::kInt, false},
    {RECORD_FIELD(tilesAcrossCopy), Kind::kInt, false},
    {RECORD_FIELD(tilesDownCopy), Kind::kInt, false},
    {RECORD_FIELD(boundsLeft), Kind::kInt, false},
    {RECORD_FIELD(boundsTop), Kind::kInt, false},
    {RECORD_FIELD(boundsRight), Kind::kInt, false},
    {RECORD_FIELD(boundsBottom), Kind::kInt, false},
    {RECORD_FIELD(reserved60), Kind::kInt, false},
    {RECORD_FIELD(reserved64), Kind::kInt, false},
    {RECORD_FIELD(newWidth), Kind::kFloat, false},
    {RECORD_FIELD(newHeight), Kind::kFloat, false},
    {RECORD_FIELD(sizeUnavailable), Kind::kFlag, false},
    {RECORD_FIELD(reserved77), Kind::kByte, false, 3},
    {STATE_FIELD(aspectRatio), Kind::kFloat, true},
    {STATE_FIELD(noOriginalSize), Kind::kFlag, true},
    {STATE_FIELD(usePercent), Kind::kFlag, true},
    {STATE_FIELD(reserved6), Kind::kByte, true},
    {STATE_FIELD(reserved7), Kind::kByte, true},
};

#undef RECORD_FIELD
#undef STATE_FIELD

// The ratio button can give more tiles than a person can enter, up to what 16 bits hold.
constexpr int kMostTilesInRecord = 32767;

template <typename Value>
Value Load(const MosaicChoices& record, size_t offset) {
  Value value;
  std::memcpy(&value, reinterpret_cast<const char*>(&record) + offset, sizeof value);
  return value;
}

template <typename Value>
void Store(MosaicChoices& record, size_t offset, Value value) {
  std::memcpy(reinterpret_cast<char*>(&record) + offset, &value, sizeof value);
}

template <typename Number>
std::string Digits(Number number) {
  char text[64];
  return {text, std::to_chars(text, text + sizeof text, number).ptr};
}

/// The shortest text that reads back as the same value; JSON has no word for what is no number.
std::string ValueText(const MosaicChoices& record, const Field& field, int index) {
  switch (field.kind) {
    case Kind::kInt:
      return Digits(Load<int32_t>(record, field.offset));
    case Kind::kFloat: {
      const float value = Load<float>(record, field.offset);
      return std::isfinite(value) ? Digits(value) : "null";
    }
    default:
      return Digits(int(Load<uint8_t>(record, field.offset + size_t(index))));
  }
}

std::string FieldText(const MosaicChoices& record, const Field& field) {
  if (field.count == 1) return ValueText(record, field, 0);
  std::string text;
  for (int i = 0; i < field.count; ++i) {
    text += (i ? ", " : "[") + ValueText(record, field, i);
  }
  return text + "]";
}

QByteArray ToJson(const MosaicChoices& record, bool choicesOnly) {
  std::string text;
  for (const Field& field : kFields) {
    if (choicesOnly && !field.isChoice) continue;
    text += text.empty() ? "{\n" : ",\n";
    text += std::string("  \"") + field.name + "\": " + FieldText(record, field);
  }
  return QByteArray::fromStdString(text + "\n}\n");
}

bool IsAllowed(Kind kind, double value) {
  const bool isWhole = value == std::floor(value);
  switch (kind) {
    case Kind::kByte:
      return isWhole && value >= 0 && value <= 255;
    case Kind::kFlag:
      return value == 0 || value == 1;
    case Kind::kInt:
      return isWhole && value >= 1 && value <= kMostTilesInRecord;
    case Kind::kFloat:
      return std::isfinite(float(value));
  }
  return false;
}

}  // namespace

QByteArray RecordToJson(const MosaicChoices& record) {
  return ToJson(record, false);
}

QByteArray ChoicesToJson(const MosaicChoices& choices) {
  return ToJson(choices, true);
}

MosaicChoices ChoicesFromJson(const QByteArray& json) {
  const QJsonDocument document = QJsonDocument::fromJson(json);
  if (!document.isObject()) throw StudioError("$$$/Studio/Choices/NoJson=it is no JSON object");

  const QJsonObject object = document.object();
  MosaicChoices choices;
  for (const Field& field : kFields) {
    if (!field.isChoice) continue;
    const QJsonValue value = object.value(QLatin1String(field.name));
    if (!value.isDouble() || !IsAllowed(field.kind, value.toDouble())) {
      throw StudioError("$$$/Studio/Choices/BadValue=\"%1\" is missing or not a value it can have",
                        QString(field.name));
    }
    if (field.kind == Kind::kInt) {
      Store(choices, field.offset, int32_t(value.toDouble()));
    } else if (field.kind == Kind::kFloat) {
      Store(choices, field.offset, float(value.toDouble()));
    } else {
      Store(choices, field.offset, uint8_t(value.toDouble()));
    }
  }
  return choices;
}
