#pragma once

#include "platform/nrvui/ui_number_edit.h"

namespace nrvui::controls {

/// Gives a number field a unit of the caller's choice. Without one it shows a bare number.
template <class Base>
class NRV_EXPORT UI_UnitNumberBaseT : public Base {
 public:
  enum CustomNumberEditUnit { kPercentUnit = 0, kLengthUnit = 1 };

  UI_UnitNumberBaseT();
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
  UI_UnitNumberEdit();
  ~UI_UnitNumberEdit() override;
};

}  // namespace nrvui::controls
