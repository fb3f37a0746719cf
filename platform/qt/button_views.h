#pragma once

#include <QButtonGroup>
#include <QCheckBox>
#include <QRadioButton>

#include "platform/nrvui/ui_controls.h"
#include "platform/qt/dialog_run.h"
#include "platform/qt/node_view.h"

namespace qtui {

/// A control that is clicked.
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
  void Follow() override;

 private:
  nrvui::controls::UI_Checkbox& checkbox;
  QCheckBox& widget;
};

class RadioButtonView final : public ButtonView {
 public:
  /// Arrow keys move within `buttonGroup`, which holds the buttons of the node's group.
  RadioButtonView(DialogRun& modalRun, nrvui::controls::UI_RadioButton& shown,
                  QButtonGroup& buttonGroup, QWidget& parent);
  void Follow() override;

 private:
  /// Has Tab, on its way through the dialog, stop at this button of the group.
  void LetTabEnterHere();

  nrvui::controls::UI_RadioButton& radio;
  QButtonGroup& group;
  QRadioButton& widget;
};

}  // namespace qtui
