#pragma once

#include "platform/nrvui/ui_number_edit.h"
#include "platform/qt/field_view.h"
#include "platform/qt/number_field.h"

namespace qtui {

/// A number with its unit and bounds.
class NumberFieldView final : public FieldView {
 public:
  NumberFieldView(DialogRun& modalRun, MessageLine& messageLine,
                  nrvui::controls::UI_NumberEdit& shown, NumberField& newWidget);
  ~NumberFieldView() override;

  QWidget* Widget() const override { return &widget; }
  void Follow() override;
  /// By so many of the field's unit, as far as the bounds allow.
  void StepAsked(int count) override;

 protected:
  QString Range() const override;
  const char* HintKey() const override;

 private:
  nrvui::controls::UI_NumberEdit& number;
  NumberField& widget;
};

}  // namespace qtui
