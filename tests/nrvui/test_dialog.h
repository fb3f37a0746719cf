#pragma once

#include <functional>
#include <map>
#include <string>

#include "platform/nrvui/ui_controls.h"
#include "platform/nrvui/ui_dialog.h"
#include "platform/nrvui/ui_edits.h"

/// An empty dialog of 100 by 100 points.
class PlainDialog : public nrvui::ui::UI_Dialog {
 public:
  explicit PlainDialog(bool hasCloseBox = true, nrvcore::geom::PointT<float> point = {10, 20});
};

/// Makes `work` the control's change handler, instead of the earlier one.
void WhenChanged(nrvui::controls::UI_ControlView& control, const std::function<void()>& work);

/// A dialog with one control of each kind. Counts the notifications of each control.
class TestDialog {
 public:
  TestDialog();

  template <class Control, class Parent>
  boost::intrusive_ptr<Control> Add(const Parent& parent, const char* id) {
    boost::intrusive_ptr<Control> control = new Control;
    control->UI_SetNodeID(id);
    WhenChanged(*control, [this, id] { ++notified[id]; });
    parent->ChildPushBack(control);
    return control;
  }

  /// What was notified since the last call, as "ID:times ..." in the order of IDs.
  std::string Notified();

  boost::intrusive_ptr<PlainDialog> dialog = new PlainDialog;
  boost::intrusive_ptr<nrvui::ui::UI_SubView> panel = new nrvui::ui::UI_SubView;
  boost::intrusive_ptr<nrvui::controls::UI_UnitNumberEdit> width, count;
  boost::intrusive_ptr<nrvui::controls::UI_TextEdit> name;
  boost::intrusive_ptr<nrvui::controls::UI_Checkbox> percent;
  boost::intrusive_ptr<nrvui::controls::UI_RadioButton> color, gray, across, down;
  boost::intrusive_ptr<nrvui::controls::UI_StaticText> label;
  boost::intrusive_ptr<nrvui::controls::UI_TextButton> ratio;
  boost::intrusive_ptr<nrvui::controls::UI_Button> ok, cancel;

 private:
  std::map<std::string, int> notified;
};
