#pragma once

#include <QButtonGroup>
#include <QCheckBox>
#include <QRadioButton>

#include "platform/nrvui/ui_controls.h"
#include "platform/qt/dialog_run.h"
#include "platform/qt/node_view.h"

namespace qtui {

/// The base of the views of buttons, check boxes and radio buttons.
class ButtonView : public CaptionedView {
 public:
  QWidget* Widget() const override { return &button; }

 protected:
  ButtonView(DialogRun& modalRun, nrvui::controls::UI_ControlView& shown, QAbstractButton& widget);
  void SetCaption(const QString& caption) override;

 private:
  QAbstractButton& button;
};

class PushButtonView final : public ButtonView {
 public:
  PushButtonView(DialogRun& modalRun, nrvui::controls::UI_Button& shown, QWidget& parent);
};

class CheckBoxView final : public ButtonView {
 public:
  CheckBoxView(DialogRun& modalRun, nrvui::controls::UI_Checkbox& shown, QWidget& parent);
  void Sync() override;

 private:
  nrvui::controls::UI_Checkbox& checkbox;
  QCheckBox& widget;
};

class RadioButtonView final : public ButtonView {
 public:
  /// `buttonGroup` holds the buttons of the node's group, within which the arrow keys move.
  RadioButtonView(DialogRun& modalRun, nrvui::controls::UI_RadioButton& shown,
                  QButtonGroup& buttonGroup, QWidget& parent);
  void Sync() override;

 private:
  /// Makes this button the one of its group that Tab stops at.
  void MakeTabStop();

  nrvui::controls::UI_RadioButton& radio;
  QButtonGroup& group;
  QRadioButton& widget;
};

}  // namespace qtui
