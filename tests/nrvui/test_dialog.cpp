#include "tests/nrvui/test_dialog.h"

#include <boost/smart_ptr/make_shared.hpp>

using namespace nrvui::controls;
using namespace nrvui::ui;

PlainDialog::PlainDialog(bool hasCloseBox, nrvcore::geom::PointT<float> point)
    : UI_Dialog(nullptr, u"Test", point, {100, 100}, false, nullptr, true, false, true, hasCloseBox,
                0, 1) {}

void WhenChanged(UI_ControlView& control, const std::function<void()>& work) {
  control.NotifyWhenChanged(
      boost::make_shared<ChangeNotifyFunction>([work](MessageT<UI_Node>*) { work(); }));
}

TestDialog::TestDialog() {
  dialog->GetRootView()->ChildPushBack(panel);
  width = Add<UI_UnitNumberEdit>(panel, "width");
  width->SetCustomUnit(UI_UnitNumberEdit::kLengthUnit);
  width->SetLowerBound(0);
  width->SetUpperBound(8640);
  width->SetNumber(300);
  count = Add<UI_UnitNumberEdit>(panel, "count");
  name = Add<UI_TextEdit>(panel, "name");
  percent = Add<UI_Checkbox>(panel, "percent");
  color = Add<UI_RadioButton>(dialog->GetRootView(), "color");
  gray = Add<UI_RadioButton>(panel, "gray");
  across = Add<UI_RadioButton>(panel, "across");
  down = Add<UI_RadioButton>(panel, "down");
  for (const auto& radio : {color, gray}) radio->SetGroup("colors");
  for (const auto& radio : {across, down}) radio->SetGroup("sides");
  for (const auto& radio : {color, down}) radio->SetValue(kRadioOn);
  label = Add<UI_StaticText>(panel, "label");
  ratio = Add<UI_TextButton>(panel, "ratio");
  ok = Add<UI_Button>(panel, "ok");
  cancel = Add<UI_Button>(panel, "cancel");
  dialog->SetOkButton(ok);
  dialog->SetCancelButton(cancel);
}

std::string TestDialog::Notified() {
  std::string text;
  for (const auto& [id, times] : notified) text += id + ":" + std::to_string(times) + " ";
  notified.clear();
  if (!text.empty()) text.pop_back();
  return text;
}
