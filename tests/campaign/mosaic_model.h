#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>

#include "platform/suites/result_code.h"

/// What the dialog "Create Tesserae" must do, worked out a second time: from the bytes that a
/// caller hands in and what a person does, the bytes that come back. It shares nothing with the
/// dialog but the rules.
class MosaicModel {
 public:
  using Record = std::array<uint8_t, 80>;
  using State = std::array<uint8_t, 8>;

  MosaicModel(const Record& callersRecord, const State& callersState);

  /// What is typed into a control; `isNumber` says whether it reads as one at all.
  struct Entry {
    std::string number;
    std::string unit;
    bool isNumber = true;
  };
  void Enter(const std::string& control, const Entry& entry);
  void Click(const std::string& control);
  void PressReturn() { Close(true); }
  void Cancel() { Close(false); }

  /// The value of a number field.
  double Number(const std::string& control) const { return fields.at(control).value; }
  bool IsField(const std::string& control) const { return fields.contains(control); }

  bool IsClosed() const { return isClosed; }
  /// The answer to the caller, and what then stands in the caller's memory. A dialog that was left
  /// open counts as cancelled.
  ResultCode Result() const { return isOk ? ResultCode::kSuccess : ResultCode::kCancelled; }
  const Record& ResultRecord() const { return isOk ? record : givenRecord; }
  const State& ResultState() const { return isOk ? state : givenState; }

 private:
  enum class Unit { kNone, kPercent, kLength };
  struct Field {
    double value = 0;
    double least = 0;
    double most = 0;
    Unit unit = Unit::kNone;
  };

  int32_t Int(size_t offset) const;
  template <typename Value>
  void Put(size_t offset, Value value);
  bool IsDisabled(const std::string& control) const;
  void ResetSize();
  void LimitSpacing();
  void UseRatio();
  void Derive(const char* from, const char* to, float factor);
  void Commit();
  void Close(bool withOk);

  Record givenRecord;
  State givenState;
  Record record;
  State state;
  std::map<std::string, Field> fields;
  bool hasSize;
  bool isClosed = false;
  bool isOk = false;
};
