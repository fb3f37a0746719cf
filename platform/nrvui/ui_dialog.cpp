#include "platform/nrvui/ui_dialog.h"

namespace nrvui::ui {

UI_Dialog::UI_Dialog(const drawbot::SupplierInterface* drawingSupplier,
                     const nrvcore::UTF16String& windowTitle,
                     nrvcore::geom::PointT<float> dialogPoint,
                     nrvcore::geom::PointT<float> contentSize, bool staysOnTop,
                     NSWindow* platformWindow, bool keepsCentre, bool isToolWindow,
                     bool hasTitleBar, bool hasCloseBox, std::uint32_t styleValue,
                     std::uint32_t flags)
    : OS_Dialog(drawingSupplier, windowTitle, dialogPoint, contentSize, platformWindow,
                {.staysOnTop = staysOnTop,
                 .keepsCentre = keepsCentre,
                 .isToolWindow = isToolWindow,
                 .hasTitleBar = hasTitleBar,
                 .hasCloseBox = hasCloseBox,
                 .value = styleValue,
                 .flags = flags}),
      rootView(new OS_View) {
  ChildPushBack(rootView);
  rootView->UI_SetLocalRectF(UI_GetLocalRectF());
}

UI_Dialog::~UI_Dialog() = default;

void UI_Dialog::OnReturnKey() {
  if (okButton == nullptr || okButton->IsDisabled() || !okButton->UI_IsVisible()) return;
  DefaultCloseOk();
}

void UI_Dialog::OnEscapeKey() {
  if (cancelButton != nullptr && cancelButton->IsDisabled()) return;
  DefaultCloseCancel();
}

void UI_Dialog::OnCloseButton() {
  DefaultCloseCancel();
}

void UI_Dialog::SetResponse(DialogResponse newResponse) {
  response = newResponse;
  UI_Changed();
}

void UI_Dialog::DefaultCloseOk() {
  SetResponse(kOkResponse);
}

void UI_Dialog::DefaultCloseCancel() {
  SetResponse(kCancelResponse);
}

void UI_Dialog::SetOkButton(const boost::intrusive_ptr<controls::UI_Button>& button) {
  okButton = button;
}

void UI_Dialog::SetCancelButton(const boost::intrusive_ptr<controls::UI_Button>& button) {
  cancelButton = button;
}

void UI_Dialog::SetInitialFocus(const boost::intrusive_ptr<UI_Node>& node) {
  initialFocus = node;
}

void UI_Dialog::Position() {
  SetPlacement(DialogPlacement::kPositioned);
}

void UI_Dialog::UI_ContentRectChanged(const nrvcore::geom::RectT<float>& rect) {
  rootView->UI_SetLocalRectF(rect);
}

}  // namespace nrvui::ui
