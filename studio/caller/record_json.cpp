#include "studio/caller/record_json.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <charconv>
#include <cmath>
#include <concepts>
#include <iterator>
#include <string>
#include <type_traits>

#include "studio/base/studio_error.h"

namespace {

enum class Use { kRecord, kChoice, kFlagChoice };  // choices are taken up by the next run

/// Calls `visit` with the name, place and use of each field, in the order of memory.
template <typename Choices, typename Visit>
void ForEachField(Choices& choices, Visit visit) {
  using enum Use;
  auto& [params, state] = choices;
  visit("reserved0", params.reserved0, kRecord);
  visit("isColor", params.isColor, kFlagChoice);
  visit("deleteRaster", params.deleteRaster, kFlagChoice);
  visit("keepHorizontal", params.keepHorizontal, kFlagChoice);
  visit("reserved11", params.reserved11, kRecord);
  visit("tilesAcross", params.tilesAcross, kChoice);
  visit("tilesDown", params.tilesDown, kChoice);
  visit("tileSpacingHorizontal", params.tileSpacingHorizontal, kRecord);
  visit("tileSpacingVertical", params.tileSpacingVertical, kRecord);
  visit("reserved28", params.reserved28, kRecord);
  visit("reserved32", params.reserved32, kRecord);
  visit("tilesAcrossCopy", params.tilesAcrossCopy, kRecord);
  visit("tilesDownCopy", params.tilesDownCopy, kRecord);
  visit("boundsLeft", params.boundsLeft, kRecord);
  visit("boundsTop", params.boundsTop, kRecord);
  visit("boundsRight", params.boundsRight, kRecord);
  visit("boundsBottom", params.boundsBottom, kRecord);
  visit("reserved60", params.reserved60, kRecord);
  visit("reserved64", params.reserved64, kRecord);
  visit("newWidth", params.newWidth, kRecord);
  visit("newHeight", params.newHeight, kRecord);
  visit("sizeUnavailable", params.sizeUnavailable, kRecord);
  visit("reserved77", params.reserved77, kRecord);
  visit("aspectRatio", state.aspectRatio, kChoice);
  visit("noOriginalSize", state.noOriginalSize, kFlagChoice);
  visit("usePercent", state.usePercent, kFlagChoice);
  visit("reserved6", state.reserved6, kChoice);
  visit("reserved7", state.reserved7, kChoice);
}

// The ratio button can give more tiles than a person can enter, up to what 16 bits hold.
constexpr int kMostTilesInRecord = 32767;

std::string ValueText(std::integral auto value) {
  return std::to_string(value);
}

/// The shortest text that reads back as the same value. JSON cannot represent NaN and infinities.
std::string ValueText(float value) {
  char text[64];
  return std::isfinite(value) ? std::string(text, std::to_chars(text, std::end(text), value).ptr)
                              : "null";
}

template <size_t kSize>
std::string ValueText(const uint8_t (&bytes)[kSize]) {
  std::string text;
  for (const uint8_t byte : bytes) text += (text.empty() ? "[" : ", ") + ValueText(byte);
  return text + "]";
}

/// Each answers whether it took the number, which must be one that the field can have.
bool Take(double number, float& value, Use) {
  value = float(number);
  return std::isfinite(value);
}

bool Take(double number, int32_t& tiles, Use) {
  if (!(number >= 1 && number <= kMostTilesInRecord)) return false;
  tiles = int32_t(number);
  return tiles == number;
}

bool Take(double number, uint8_t& byte, Use use) {
  if (!(number >= 0 && number <= (use == Use::kFlagChoice ? 1 : 255))) return false;
  byte = uint8_t(number);
  return byte == number;
}

}  // namespace

QByteArray ToJson(const MosaicChoices& record, Fields fields) {
  std::string text;
  ForEachField(record, [&](const char* name, const auto& value, Use use) {
    if (fields == Fields::kChoices && use == Use::kRecord) return;
    text += text.empty() ? "{\n" : ",\n";
    text += std::string("  \"") + name + "\": " + ValueText(value);
  });
  return QByteArray::fromStdString(text + "\n}\n");
}

MosaicChoices ChoicesFromJson(const QByteArray& json) {
  const QJsonDocument document = QJsonDocument::fromJson(json);
  if (!document.isObject()) throw StudioError("$$$/Studio/Choices/NoJson=it is no JSON object");

  const QJsonObject object = document.object();
  MosaicChoices choices;
  ForEachField(choices, [&](const char* name, auto& field, Use use) {
    if constexpr (std::is_arithmetic_v<std::remove_reference_t<decltype(field)>>) {
      const QJsonValue value = object.value(QLatin1String(name));
      if (use == Use::kRecord || (value.isDouble() && Take(value.toDouble(), field, use))) return;
      throw StudioError("$$$/Studio/Choices/BadValue=\"%1\" is missing or not a value it can have",
                        QString(name));
    }
  });
  return choices;
}
