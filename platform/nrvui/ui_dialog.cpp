#include "platform/nrvui/ui_dialog.h"

#include <boost/core/noncopyable.hpp>
#include <stdexcept>

#include "platform/nrvcore/error.h"
#include "platform/nrvui/dialog_presenter.h"

namespace nrvui {

drawbot::SupplierInterface::~SupplierInterface() = default;

datatransfer::OS_DropTarget::OS_DropTarget() = default;
datatransfer::OS_DropTarget::~OS_DropTarget() = default;

}  // namespace nrvui

namespace nrvui::ui {

using nrvcore::geom::ClampLength;
using nrvcore::geom::kMaxLength;

namespace {

constexpr const char* kNoPresenter =
    "$$$/nrvui/Dialog/Error/NoPresenter=No display is available for the dialog.";

class OpenScope : boost::noncopyable {
 public:
  explicit OpenScope(bool& isDialogOpen) : isOpen(isDialogOpen) { isOpen = true; }
  ~OpenScope() { isOpen = false; }

 private:
  bool& isOpen;
};

}  // namespace

OS_Dialog::OS_Dialog(const drawbot::SupplierInterface* drawingSupplier,
                     const nrvcore::UTF16String& windowTitle, nrvcore::geom::PointT<float> point,
                     nrvcore::geom::PointT<float> contentSize, NSWindow*,
                     const DialogStyle& windowStyle)
    : supplier(drawingSupplier),
      title(windowTitle),
      dialogPoint{ClampLength(point.x, -kMaxLength), ClampLength(point.y, -kMaxLength)},
      style(windowStyle) {
  SetContentSize(contentSize);
}

OS_Dialog::~OS_Dialog() = default;

void OS_Dialog::RunModal() {
  DialogPresenter* const presenter = InstalledPresenter::Current();
  if (presenter == nullptr) nrvcore::config::ThrowError(kNoPresenter);
  if (isOpen) throw std::logic_error("the dialog is already open");
  const boost::intrusive_ptr<OS_Dialog> kept = this;  // a handler may release all other references
  const OpenScope openScope(isOpen);
  auto& dialog = static_cast<UI_Dialog&>(*this);
  dialog.SetResponse(kNoResponse);
  presenter->Present(dialog);
  if (dialog.GetResponse() == kNoResponse) dialog.SetResponse(kCancelResponse);
}

void OS_Dialog::Center() {
  UI_SetMember(placement, DialogPlacement::kCentered);
}

void OS_Dialog::SetMinimumSize(nrvcore::geom::PointT<float> newMinimumSize) {
  minimumSize = {ClampLength(newMinimumSize.x, 0), ClampLength(newMinimumSize.y, 0)};
  UI_Changed();
}

void OS_Dialog::SetContentSize(nrvcore::geom::PointT<float> contentSize) {
  UI_SetLocalRectF({0, 0, contentSize.x, contentSize.y});
}

nrvcore::geom::PointT<float> OS_Dialog::GetContentSize() const {
  const auto rect = UI_GetLocalRectF();
  return {rect.right, rect.bottom};
}

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
  UI_SetMember(response, newResponse);
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
  UI_SetMember(placement, DialogPlacement::kPositioned);
}

void UI_Dialog::UI_ContentRectChanged(const nrvcore::geom::RectT<float>& rect) {
  rootView->UI_SetLocalRectF(rect);
}

}  // namespace nrvui::ui
