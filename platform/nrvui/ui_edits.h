#pragma once

#include <limits>

#include "platform/nrvui/number_text.h"
#include "platform/nrvui/outcome.h"
#include "platform/nrvui/ui_controls.h"

namespace nrvui::controls {

/// A field in which the user edits a text.
class NRV_EXPORT UI_TextEdit : public UI_ControlView {
 public:
  ~UI_TextEdit() override;

  /// The text that the field displays.
  virtual nrvcore::UTF16String GetValue() const;
  virtual void SetValue(const nrvcore::UTF16String& newText);

  /// Sets the value to a valid entry of the user, without calling the change handler.
  virtual gestures::Outcome AcceptEntry(const nrvcore::UTF16String& entry);

 private:
  nrvcore::UTF16String text;
};

/// A field for a number. Its text is always the formatted value. Code can set values outside the
/// bounds; entries of the user are clamped to them. An upper bound below the lower bound counts as
/// equal to it.
class NRV_EXPORT UI_NumberEdit : public UI_TextEdit {
 public:
  ~UI_NumberEdit() override;

  virtual double GetNumber() const;
  virtual void SetNumber(double newNumber);
  virtual void SetLowerBound(double bound);
  virtual void SetUpperBound(double bound);
  double GetLowerBound() const { return lowerBound; }
  /// At least the lower bound.
  double GetUpperBound() const;

  virtual NumberUnit GetUnit() const;

  nrvcore::UTF16String GetValue() const override;
  /// Throws an Error unless the text is a number in the field's unit.
  void SetValue(const nrvcore::UTF16String& newText) override;
  gestures::Outcome AcceptEntry(const nrvcore::UTF16String& entry) override;

  struct ParsedEntry {
    double number = 0;  // within the bounds; 0 when the entry is refused
    gestures::Outcome outcome;
  };
  /// The result that AcceptEntry would have. Changes nothing.
  ParsedEntry ParseEntry(const nrvcore::UTF16String& entry) const;

  /// A value as the field shows it.
  nrvcore::UTF16String Format(double value) const;

 private:
  double number = 0;
  double lowerBound = -std::numeric_limits<double>::infinity();
  double upperBound = std::numeric_limits<double>::infinity();
};

/// A number field with a unit. Until SetCustomUnit it shows a bare number.
template <class Base>
class NRV_EXPORT UI_UnitNumberBaseT : public Base {
 public:
  enum CustomNumberEditUnit { kPercentUnit = 0, kLengthUnit = 1 };

  ~UI_UnitNumberBaseT() override;

  /// Sets the unit and keeps the number: 100 % becomes 100 pt.
  void SetCustomUnit(CustomNumberEditUnit customUnit);
  NumberUnit GetUnit() const override;

 private:
  NumberUnit unit = NumberUnit::kNone;
};

extern template class UI_UnitNumberBaseT<UI_NumberEdit>;

class NRV_EXPORT UI_UnitNumberEdit : public UI_UnitNumberBaseT<UI_NumberEdit> {
 public:
  ~UI_UnitNumberEdit() override;
};

}  // namespace nrvui::controls
