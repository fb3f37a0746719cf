#pragma once

#include <limits>

#include "platform/nrvui/number_text.h"
#include "platform/nrvui/ui_text_edit.h"

namespace nrvui::controls {

/// A text field that shows a number; its text is always the formatted value. Code sets any value,
/// whatever the bounds; what a person enters is pulled to the nearest bound. An upper bound below
/// the lower one counts as the lower one.
class NRV_EXPORT UI_NumberEdit : public UI_TextEdit {
 public:
  UI_NumberEdit();
  ~UI_NumberEdit() override;

  virtual double GetNumber() const;
  virtual void SetNumber(double newNumber);
  virtual void SetLowerBound(double bound);
  virtual void SetUpperBound(double bound);
  double GetLowerBound() const;
  /// The lower bound where that is greater.
  double GetUpperBound() const;

  virtual NumberUnit GetUnit() const;

  nrvcore::UTF16String GetValue() const override;
  /// Throws an Error when the text is no number that fits the field's unit.
  void SetValue(const nrvcore::UTF16String& newText) override;
  gestures::Outcome AcceptEntry(const nrvcore::UTF16String& entry) override;

  /// A value as the field would show it.
  nrvcore::UTF16String Format(double value) const;

 private:
  double number = 0;
  double lowerBound = -std::numeric_limits<double>::infinity();
  double upperBound = std::numeric_limits<double>::infinity();
};

}  // namespace nrvui::controls
