#pragma once

#include <limits>

#include "platform/nrvui/number_text.h"
#include "platform/nrvui/outcome.h"
#include "platform/nrvui/ui_controls.h"

namespace nrvui::controls {

/// A field in which a person edits a text.
class NRV_EXPORT UI_TextEdit : public UI_ControlView {
 public:
  ~UI_TextEdit() override;

  /// The text that the field displays.
  virtual nrvcore::UTF16String GetValue() const;
  virtual void SetValue(const nrvcore::UTF16String& newText);

  /// Takes what a person entered, as far as it is fit for the field, without notifying.
  virtual gestures::Outcome AcceptEntry(const nrvcore::UTF16String& entry);

 private:
  nrvcore::UTF16String text;
};

/// A text field that shows a number; its text is always the formatted value. Code sets any value,
/// whatever the bounds; what a person enters is pulled to the nearest bound. An upper bound below
/// the lower one counts as the lower one.
class NRV_EXPORT UI_NumberEdit : public UI_TextEdit {
 public:
  ~UI_NumberEdit() override;

  virtual double GetNumber() const;
  virtual void SetNumber(double newNumber);
  virtual void SetLowerBound(double bound);
  virtual void SetUpperBound(double bound);
  double GetLowerBound() const { return lowerBound; }
  /// The lower bound where that is greater.
  double GetUpperBound() const;

  virtual NumberUnit GetUnit() const;

  nrvcore::UTF16String GetValue() const override;
  /// Throws an Error when the text is no number that fits the field's unit.
  void SetValue(const nrvcore::UTF16String& newText) override;
  gestures::Outcome AcceptEntry(const nrvcore::UTF16String& entry) override;

  struct Reading {
    double number = 0;  // within the bounds; 0 when the entry is refused
    gestures::Outcome outcome;
  };
  /// What AcceptEntry would make of an entry. The field stays as it is.
  Reading Read(const nrvcore::UTF16String& entry) const;

  /// A value as the field would show it.
  nrvcore::UTF16String Format(double value) const;

 private:
  double number = 0;
  double lowerBound = -std::numeric_limits<double>::infinity();
  double upperBound = std::numeric_limits<double>::infinity();
};

/// Gives a number field a unit of the caller's choice. Without one it shows a bare number.
template <class Base>
class NRV_EXPORT UI_UnitNumberBaseT : public Base {
 public:
  enum CustomNumberEditUnit { kPercentUnit = 0, kLengthUnit = 1 };

  ~UI_UnitNumberBaseT() override;

  /// The number stays as it is: 100 % becomes 100 pt.
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
