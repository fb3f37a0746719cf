#include <QByteArrayList>
#include <algorithm>
#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <type_traits>

#include "studio/base/studio_error.h"
#include "studio/caller/kept_choices.h"

namespace {

/// Keeps the order of members, and writes floats with as few digits as they need.
using Json = nlohmann::basic_json<nlohmann::ordered_map, std::vector, std::string, bool, int64_t,
                                  uint64_t, float>;

struct Range {
  double least;
  double most;
};

constexpr Range kFlag{0, 1};
constexpr Range kByte{0, 255};
constexpr Range kTiles{1, 32767};  // the ratio button exceeds the bounds of user input
constexpr Range kFinite{std::numeric_limits<float>::lowest(), std::numeric_limits<float>::max()};

/// Calls `visit` with the name of each field and the field, in the order of memory. The fields of
/// "last", with which the next dialog starts, have the range of valid values as third argument.
template <typename Choices, typename Visit>
void ForEachField(Choices& choices, Visit visit) {
  auto& [params, state] = choices;
  visit("reserved0", params.reserved0);
  visit("isColor", params.isColor, kFlag);
  visit("deleteRaster", params.deleteRaster, kFlag);
  visit("keepHorizontal", params.keepHorizontal, kFlag);
  visit("reserved11", params.reserved11);
  visit("tilesAcross", params.tilesAcross, kTiles);
  visit("tilesDown", params.tilesDown, kTiles);
  visit("tileSpacingHorizontal", params.tileSpacingHorizontal);
  visit("tileSpacingVertical", params.tileSpacingVertical);
  visit("reserved28", params.reserved28);
  visit("reserved32", params.reserved32);
  visit("tilesAcrossCopy", params.tilesAcrossCopy);
  visit("tilesDownCopy", params.tilesDownCopy);
  visit("boundsLeft", params.boundsLeft);
  visit("boundsTop", params.boundsTop);
  visit("boundsRight", params.boundsRight);
  visit("boundsBottom", params.boundsBottom);
  visit("reserved60", params.reserved60);
  visit("reserved64", params.reserved64);
  visit("newWidth", params.newWidth);
  visit("newHeight", params.newHeight);
  visit("sizeUnavailable", params.sizeUnavailable);
  visit("reserved77", params.reserved77);
  visit("aspectRatio", state.aspectRatio, kFinite);
  visit("noOriginalSize", state.noOriginalSize, kFlag);
  visit("usePercent", state.usePercent, kFlag);
  visit("reserved6", state.reserved6, kByte);
  visit("reserved7", state.reserved7, kByte);
}

/// Whole numbers have no ".0".
template <typename Value>
Json ToValue(const Value& value) {
  if constexpr (std::is_floating_point_v<Value>) {
    constexpr Value kMostWhole = 1e9F;
    if (std::trunc(value) == value && std::abs(value) <= kMostWhole) return Json(int64_t(value));
  }
  return Json(value);
}

Json LastJson(const MosaicChoices& choices) {
  Json json;
  ForEachField(choices, [&](const char* name, const auto& value, auto... range) {
    if constexpr (sizeof...(range) > 0) json[name] = ToValue(value);
  });
  return json;
}

template <typename Number>
void Read(const Json& json, const char* name, Number& field, Range range) {
  const Json value = json.value(name, Json());
  const double number = value.is_number() ? value.get<double>() : std::nan("");
  const bool isInRange = number >= range.least && number <= range.most;
  if (isInRange) field = Number(number);
  if (isInRange && (std::is_floating_point_v<Number> || field == number)) return;
  throw StudioError("$$$/Studio/Choices/BadValue=\"%1\" is missing or has an invalid value",
                    QString(name));
}

MosaicChoices LastFrom(const Json& json) {
  MosaicChoices choices;
  ForEachField(choices, [&](const char* name, auto& field, auto... range) {
    if constexpr (sizeof...(range) > 0) Read(json, name, field, range...);
  });
  return choices;
}

Json EntriesJson(const DialogEntries& entries) {
  Json json = Json::object();
  for (const auto& [control, value] : entries) json[control] = ToValue(value);
  return json;
}

KeptChoices KeptFrom(Json json) {
  KeptChoices kept;
  // A file of version 1.0 is the object that "last" holds now.
  if (!json.contains("last") && !json.contains("recent") && !json.contains("presets"))
    json = {{"last", json}};
  if (json.contains("last")) kept.last = LastFrom(json["last"]);
  kept.recent = json.value("recent", kept.recent);
  for (const auto& [key, entries] : json.value("presets", std::map<std::string, DialogEntries>())) {
    const QString name = QString::fromStdString(key);
    if (!kept.presets.emplace(name, entries).second)
      throw StudioError("$$$/Studio/Choices/SamePreset=two presets are named \"%1\"", name);
  }
  kept.document = json.dump();
  return kept;
}

}  // namespace

QByteArray RecordJson(const MosaicChoices& record) {
  QByteArrayList lines;
  ForEachField(record, [&](const char* name, const auto& value, auto...) {
    const auto text = QByteArray::fromStdString(ToValue(value).dump());
    lines << QByteArray("  \"") + name + "\": " + QByteArray(text).replace(",", ", ");
  });
  return "{\n" + lines.join(",\n") + "\n}\n";
}

QByteArray ToJson(const KeptChoices& kept) {
  Json json = Json::parse(kept.document);
  if (kept.last) json["last"].update(LastJson(*kept.last));
  json["recent"] = Json::array();
  for (const DialogEntries& entries : kept.recent) json["recent"] += EntriesJson(entries);
  json["presets"] = Json::object();
  for (const auto& [name, entries] : kept.presets)
    json["presets"][name.toStdString()] = EntriesJson(entries);
  return QByteArray::fromStdString(json.dump(2) + '\n');
}

KeptChoices KeptChoicesFromJson(const std::string& json) {
  try {
    return KeptFrom(Json::parse(json));
  } catch (const Json::parse_error& error) {
    const auto end = json.begin() + std::ptrdiff_t(std::min(error.byte, json.size()));
    throw StudioError("$$$/Studio/Choices/NotJson=line %1 is not valid JSON",
                      QString::number(1 + std::count(json.begin(), end, '\n')));
  } catch (const Json::exception&) {
    throw StudioError("$$$/Studio/Choices/OtherContent=it does not hold choices");
  }
}
