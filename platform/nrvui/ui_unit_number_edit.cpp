#include "platform/nrvui/ui_unit_number_edit.h"

namespace nrvui::controls {

template <class Base>
UI_UnitNumberBaseT<Base>::UI_UnitNumberBaseT() = default;

template <class Base>
UI_UnitNumberBaseT<Base>::~UI_UnitNumberBaseT() = default;

template <class Base>
void UI_UnitNumberBaseT<Base>::SetCustomUnit(CustomNumberEditUnit customUnit) {
  unit = customUnit == kPercentUnit ? NumberUnit::kPercent : NumberUnit::kLength;
  this->UI_Changed();
}

template <class Base>
NumberUnit UI_UnitNumberBaseT<Base>::GetUnit() const {
  return unit;
}

template class UI_UnitNumberBaseT<UI_NumberEdit>;

UI_UnitNumberEdit::UI_UnitNumberEdit() = default;
UI_UnitNumberEdit::~UI_UnitNumberEdit() = default;

}  // namespace nrvui::controls
