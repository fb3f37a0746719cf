#include <boost/bind/bind.hpp>
#include <boost/function.hpp>
#include <boost/smart_ptr/make_shared.hpp>

#include "mosaic/short_arithmetic.h"
#include "mosaic/tesserae_ui_dialog.h"
#include "platform/nrvui/message_function_adapter.h"
#include "platform/nrvui/ui_control_view.h"
#include "platform/nrvui/ui_message.h"
#include "platform/nrvui/ui_unit_number_edit.h"

using nrvui::controls::UI_ControlView;
using nrvui::controls::UI_UnitNumberEdit;
using nrvui::ui::UI_ControlChangedMessage;

void TesseraeUIDialog::SetControlNumber(const char* nodeID, int32_t value) {
  Control<UI_UnitNumberEdit>(nodeID)->SetNumber(static_cast<float>(value));
}

void TesseraeUIDialog::GetControlShort(const char* nodeID, int16_t& value) const {
  value = LowShort(TruncateToInt(GetControlFloat(nodeID)));
}

float TesseraeUIDialog::GetControlFloat(const char* nodeID) const {
  return static_cast<float>(Control<UI_UnitNumberEdit>(nodeID)->GetNumber());
}

void TesseraeUIDialog::InstallChangeHandler(const char* nodeID, ChangeHandler handler) {
  const auto control = CheckedCast<UI_ControlView>(FindNodeByID(nodeID));
  if (!control) return;

  using NodeMessage = nrvui::ui::MessageT<nrvui::ui::UI_Node>;
  const boost::function1<void, UI_ControlChangedMessage*> inner =
      boost::bind(handler, this, boost::placeholders::_1);
  const nrvui::ui::MessageFunctionAdapter<NodeMessage, UI_ControlChangedMessage> adapter(inner);
  control->NotifyWhenChanged(boost::make_shared<boost::function<void(NodeMessage*)>>(adapter));
}
