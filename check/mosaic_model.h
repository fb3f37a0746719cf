#pragma once

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <string>

#include "mosaic/mosaic_suite.h"

namespace check {

/// The oracle for the dialog "Create Tesserae": computes from the caller's record and state and the
/// user's gestures what the controls show and what the caller gets. It shares no code with the
/// dialog. random_checks.cpp compares the two.
class MosaicModel {
 public:
  enum class Unit { kNone, kPercent, kLength };
  struct Field {
    double value = 0, least = 0, most = 0;
    Unit unit = Unit::kNone;
  };
  /// User input for a field: a number, or other text, and a unit.
  struct Entry {
    std::string number;
    std::string unit;
    bool isNumber = true;
  };

  MosaicModel(const MosaicParameters& callersRecord, const MosaicDialogState& callersState)
      : record(callersRecord), state(callersState), hasSize(callersRecord.sizeUnavailable == 0) {
    state.noOriginalSize = record.sizeUnavailable;
    state.usePercent = state.usePercent != 0 || !hasSize;
    state.reserved6 = 0;
    ResetSize();
    fields["HorizontalCountTxt"] = {double(int16_t(record.tilesAcross)), 1, 8640};
    fields["VerticalCountTxt"] = {double(int16_t(record.tilesDown)), 1, 8640};
    fields["TileSpaceHorzTxt"] = fields["TileSpaceVertTxt"] = {0, 0, 0, Unit::kLength};
    LimitSpacing();
  }

  void Enter(const std::string& control, const Entry& entry) {
    if (isClosed || !fields.contains(control) || !entry.isNumber) return;
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

  void Click(const std::string& control) {
    if (isClosed || IsDisabled(control)) return;
    // The click on a selected button leaves the caller's flag unchanged.
    if (control.ends_with("Radio") && !IsOn(control))
      record.*kRadios.at(control).flag = kRadios.at(control).value;
    if (control == "DeleteRasterChk") record.deleteRaster = record.deleteRaster == 0;
    if (control == "UsePercentChk") {
      state.usePercent = state.usePercent == 0;
      ResetSize();
    }
    if (control == "MosaicUseRatioButton") UseRatio();
    if (control == "okButton") Confirm();
    if (control == "cancelButton") Cancel();
  }

  void Confirm() {
    if (isClosed) return;
    isClosed = isOk = true;
    record.reserved28 = record.reserved32 = record.reserved60 = record.reserved64 = 0;
    const auto size = [&](const char* field) {
      const auto value = static_cast<float>(fields[field].value);
      return state.usePercent ? value / 100.0f : value;
    };
    record.newWidth = size("NewWidthTxt");
    record.newHeight = size("NewHeightTxt");
    record.tileSpacingHorizontal = Whole("TileSpaceHorzTxt");
    record.tileSpacingVertical = Whole("TileSpaceVertTxt");
    record.tilesAcross = record.tilesAcrossCopy = Whole("HorizontalCountTxt");
    record.tilesDown = record.tilesDownCopy = Whole("VerticalCountTxt");
  }

  void Cancel() { isClosed = true; }

  bool IsDisabled(const std::string& control) const {
    return !hasSize && (control.ends_with("Radio") || control == "UsePercentChk" ||
                        control == "MosaicUseRatioButton");
  }
  /// The texts of the labels of the source's size.
  std::map<std::string, std::string> SourceTexts() const {
    const auto text = [this](int32_t first, int32_t second) {
      const auto extent = static_cast<int16_t>(int64_t{second} - first);
      return hasSize ? std::to_string(extent) + " pt" : "N/A";
    };
    return {{"OrigWidthStatic", text(record.boundsLeft, record.boundsRight)},
            {"OrigHeightStatic", text(record.boundsTop, record.boundsBottom)}};
  }
  /// Whether a radio button or check box is on.
  bool IsOn(const std::string& control) const {
    if (control == "UsePercentChk") return state.usePercent != 0;
    if (control == "DeleteRasterChk") return record.deleteRaster != 0;
    const Radio& radio = kRadios.at(control);
    return (record.*radio.flag != 0) == radio.value;
  }
  /// Whether OK closed the dialog. Record and State then return what the caller gets.
  bool IsOk() const { return isOk; }
  const MosaicParameters& Record() const { return record; }
  const MosaicDialogState& State() const { return state; }
  const std::map<std::string, Field>& Fields() const { return fields; }

 private:
  struct Radio {
    uint8_t MosaicParameters::*flag;
    bool value;
  };
  static inline const std::map<std::string, Radio> kRadios = {
      {"HorizontalRadio", {&MosaicParameters::keepHorizontal, true}},
      {"VerticalRadio", {&MosaicParameters::keepHorizontal, false}},
      {"ColorRadio", {&MosaicParameters::isColor, true}},
      {"GrayRadio", {&MosaicParameters::isColor, false}},
  };

  void ResetSize() {
    const bool percent = state.usePercent != 0;
    const auto width = static_cast<int32_t>(int64_t{record.boundsRight} - record.boundsLeft);
    const auto height = static_cast<int16_t>(int64_t{record.boundsBottom} - record.boundsTop);
    for (const auto& [name, extent] :
         {std::pair("NewWidthTxt", static_cast<int16_t>(width)), {"NewHeightTxt", height}})
      fields[name] = {percent || !hasSize ? 100.0 : extent, 0, percent ? 100.0 : 8640.0,
                      percent ? Unit::kPercent : Unit::kLength};
    state.aspectRatio =
        hasSize && height != 0 ? static_cast<float>(width) / static_cast<float>(height) : 1.0f;
  }

  void LimitSpacing() {
    for (const auto& [count, spacing] : {std::pair("HorizontalCountTxt", "TileSpaceHorzTxt"),
                                         {"VerticalCountTxt", "TileSpaceVertTxt"}}) {
      Field& field = fields[spacing];
      field.most = std::max(0.0f, static_cast<float>(fields[count].value) - 2.0f);
      if (static_cast<float>(field.value) > field.most) field.value = field.most;
    }
  }

  void UseRatio() {
    if (record.keepHorizontal == 0) {
      Derive("VerticalCountTxt", "HorizontalCountTxt", state.aspectRatio);
      Derive("NewHeightTxt", "NewWidthTxt", state.aspectRatio);
    } else if (state.aspectRatio != 0) {
      Derive("HorizontalCountTxt", "VerticalCountTxt", 1.0f / state.aspectRatio);
      Derive("NewWidthTxt", "NewHeightTxt", 1.0f / state.aspectRatio);
    }
  }

  void Derive(const char* from, const char* to, float factor) {
    const float exact = static_cast<float>(static_cast<int16_t>(Whole(from))) * factor;
    const double rounded = exact > 0 ? std::floor(exact + 0.5) : std::ceil(exact - 0.5);
    fields[to].value = static_cast<int16_t>(std::clamp(rounded, -32768.0, 32767.0));
  }

  int32_t Whole(const char* field) const {
    return static_cast<int32_t>(std::trunc(static_cast<float>(fields.at(field).value)));
  }

  MosaicParameters record;
  MosaicDialogState state;
  std::map<std::string, Field> fields;
  bool hasSize;
  bool isClosed = false;
  bool isOk = false;
};

}  // namespace check
