#include "campaign/mosaic_model.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace {

// Where things stand in the caller's memory.
enum RecordOffset : size_t {
  kIsColor = 8,
  kDeleteRaster = 9,
  kKeepHorizontal = 10,
  kTilesAcross = 12,
  kTilesDown = 16,
  kSpacingAcross = 20,
  kSpacingDown = 24,
  kTilesAcrossAgain = 36,
  kTilesDownAgain = 40,
  kLeft = 44,
  kTop = 48,
  kRight = 52,
  kBottom = 56,
  kNewWidth = 68,
  kNewHeight = 72,
  kNoSize = 76,
};
constexpr size_t kClearedOnOk[] = {28, 32, 60, 64};
enum StateOffset : size_t { kRatio = 0, kStateNoSize = 4, kUsePercent = 5, kClearedAtOnce = 6 };

constexpr double kMostLength = 8640;

int16_t Low16(int32_t value) {
  int16_t low;
  std::memcpy(&low, &value, sizeof low);
  return low;
}

int32_t Difference(int32_t a, int32_t b) {
  return static_cast<int32_t>(int64_t{a} - b);
}

int32_t Whole(double value) {
  return static_cast<int32_t>(std::trunc(static_cast<float>(value)));
}

}  // namespace

int32_t MosaicModel::Int(size_t offset) const {
  int32_t value;
  std::memcpy(&value, &record[offset], sizeof value);
  return value;
}

template <typename Value>
void MosaicModel::Put(size_t offset, Value value) {
  std::memcpy(&record[offset], &value, sizeof value);
}

MosaicModel::MosaicModel(const Record& callersRecord, const State& callersState)
    : givenRecord(callersRecord),
      givenState(callersState),
      record(callersRecord),
      state(callersState),
      hasSize(callersRecord[kNoSize] == 0) {
  state[kStateNoSize] = record[kNoSize];
  state[kUsePercent] = state[kUsePercent] != 0 || !hasSize;
  state[kClearedAtOnce] = 0;
  ResetSize();
  for (const auto& [name, offset] :
       {std::pair("HorizontalCountTxt", kTilesAcross), {"VerticalCountTxt", kTilesDown}})
    fields[name] = {static_cast<double>(Low16(Int(offset))), 1, kMostLength, Unit::kNone};
  for (const char* name : {"TileSpaceHorzTxt", "TileSpaceVertTxt"})
    fields[name] = {0, 0, std::numeric_limits<double>::infinity(), Unit::kLength};
  LimitSpacing();
}

void MosaicModel::ResetSize() {
  const bool percent = state[kUsePercent] != 0;
  const int32_t width = Difference(Int(kRight), Int(kLeft));
  const int16_t height = Low16(Difference(Int(kBottom), Int(kTop)));
  Field field{100, 0, percent ? 100 : kMostLength, percent ? Unit::kPercent : Unit::kLength};
  const bool whole = percent || !hasSize;
  if (!whole) field.value = Low16(width);
  fields["NewWidthTxt"] = field;
  if (!whole) field.value = height;
  fields["NewHeightTxt"] = field;
  const float ratio =
      hasSize && height != 0 ? static_cast<float>(width) / static_cast<float>(height) : 1.0f;
  std::memcpy(&state[kRatio], &ratio, sizeof ratio);
}

void MosaicModel::LimitSpacing() {
  for (const auto& [count, spacing] : {std::pair("HorizontalCountTxt", "TileSpaceHorzTxt"),
                                       {"VerticalCountTxt", "TileSpaceVertTxt"}}) {
    const float most = static_cast<float>(fields[count].value) - 2.0f;
    fields[spacing].most = most < 0 ? 0 : most;
    if (static_cast<float>(fields[spacing].value) > fields[spacing].most)
      fields[spacing].value = fields[spacing].most;
  }
}

bool MosaicModel::IsDisabled(const std::string& control) const {
  return !hasSize && (control.ends_with("Radio") || control == "UsePercentChk" ||
                      control == "MosaicUseRatioButton");
}

void MosaicModel::Enter(const std::string& control, const Entry& entry) {
  if (isClosed || !IsField(control) || !entry.isNumber) return;
  static const std::map<std::string, std::pair<Unit, double>> kUnits = {
      {"pt", {Unit::kLength, 1}},           {"px", {Unit::kLength, 1}},
      {"in", {Unit::kLength, 72}},          {"mm", {Unit::kLength, 72.0 / 25.4}},
      {"cm", {Unit::kLength, 72.0 / 2.54}}, {"%", {Unit::kPercent, 1}},
  };
  Field& field = fields[control];
  double value = std::strtod(entry.number.c_str(), nullptr);
  if (!entry.unit.empty()) {
    const auto& [unit, factor] = kUnits.at(entry.unit);
    if (unit != field.unit) return;
    value *= factor;
  }
  value = std::max(std::min(value, field.most), field.least);
  if (value == field.value) return;
  field.value = value;
  if (control.ends_with("CountTxt")) LimitSpacing();
}

void MosaicModel::Click(const std::string& control) {
  if (isClosed || IsDisabled(control)) return;
  // A button that is selected already stays as it is, and so does the caller's flag.
  const auto select = [&](size_t flag, bool value) {
    if ((record[flag] != 0) != value) record[flag] = value;
  };
  if (control == "HorizontalRadio") select(kKeepHorizontal, true);
  if (control == "VerticalRadio") select(kKeepHorizontal, false);
  if (control == "ColorRadio") select(kIsColor, true);
  if (control == "GrayRadio") select(kIsColor, false);
  if (control == "DeleteRasterChk") record[kDeleteRaster] = record[kDeleteRaster] == 0;
  if (control == "UsePercentChk") {
    state[kUsePercent] = state[kUsePercent] == 0;
    ResetSize();
  }
  if (control == "MosaicUseRatioButton") UseRatio();
  if (control == "okButton") Close(true);
  if (control == "cancelButton") Close(false);
}

void MosaicModel::UseRatio() {
  float ratio;
  std::memcpy(&ratio, &state[kRatio], sizeof ratio);
  if (record[kKeepHorizontal] == 0) {
    Derive("VerticalCountTxt", "HorizontalCountTxt", ratio);
    Derive("NewHeightTxt", "NewWidthTxt", ratio);
  } else if (ratio != 0) {
    Derive("HorizontalCountTxt", "VerticalCountTxt", 1.0f / ratio);
    Derive("NewWidthTxt", "NewHeightTxt", 1.0f / ratio);
  }
}

void MosaicModel::Derive(const char* from, const char* to, float factor) {
  const float exact = static_cast<float>(Low16(Whole(fields[from].value))) * factor;
  const double rounded = exact > 0 ? std::floor(exact + 0.5) : std::ceil(exact - 0.5);
  fields[to].value = static_cast<int16_t>(std::clamp(rounded, -32768.0, 32767.0));
}

void MosaicModel::Commit() {
  for (const size_t offset : kClearedOnOk) Put(offset, int32_t{0});
  for (const auto& [name, offset] :
       {std::pair("NewWidthTxt", kNewWidth), {"NewHeightTxt", kNewHeight}}) {
    const auto value = static_cast<float>(fields[name].value);
    Put(offset, state[kUsePercent] ? value / 100.0f : value);
  }
  for (const auto& [name, offset] : {std::pair("TileSpaceHorzTxt", kSpacingAcross),
                                     {"TileSpaceVertTxt", kSpacingDown},
                                     {"HorizontalCountTxt", kTilesAcross},
                                     {"HorizontalCountTxt", kTilesAcrossAgain},
                                     {"VerticalCountTxt", kTilesDown},
                                     {"VerticalCountTxt", kTilesDownAgain}})
    Put(offset, Whole(fields[name].value));
}

void MosaicModel::Close(bool withOk) {
  if (isClosed) return;
  isClosed = true;
  isOk = withOk;
  if (withOk) Commit();
}
