#include "platform/nrvui/os_dialog.h"

#include <utility>

#include "platform/nrvcore/error.h"

namespace nrvui::ui {

namespace {

constexpr const char* kNoPresenter =
    "$$$/nrvui/Dialog/Error/NoPresenter=There is nobody to show the dialog to.";

DialogPresenter* installedPresenter = nullptr;

}  // namespace

OS_Dialog::OS_Dialog(const drawbot::SupplierInterface* drawingSupplier,
                     const nrvcore::UTF16String& windowTitle, nrvcore::geom::PointT<float> point,
                     nrvcore::geom::PointT<float> contentSize, NSWindow*,
                     const DialogStyle& windowStyle)
    : supplier(drawingSupplier), title(windowTitle), dialogPoint(point), style(windowStyle) {
  SetContentSize(contentSize);
}

OS_Dialog::~OS_Dialog() = default;

void OS_Dialog::RunModal() {
  if (installedPresenter == nullptr) {
    nrvcore::config::ThrowError(nrvcore::config::ErrorLevel::kError, kNoPresenter, 0, 0, false, {},
                                {}, {}, {});
  }
  Run(*installedPresenter);
}

DialogPresenter* OS_Dialog::InstallPresenter(DialogPresenter* presenter) {
  return std::exchange(installedPresenter, presenter);
}

void OS_Dialog::Center() {
  SetPlacement(DialogPlacement::kCentered);
}

DialogPlacement OS_Dialog::GetPlacement() const {
  return placement;
}

void OS_Dialog::SetPlacement(DialogPlacement newPlacement) {
  placement = newPlacement;
  UI_Changed();
}

nrvcore::geom::PointT<float> OS_Dialog::GetDialogPoint() const {
  return dialogPoint;
}

void OS_Dialog::SetMinimumSize(nrvcore::geom::PointT<float> newMinimumSize) {
  minimumSize = newMinimumSize;
  UI_Changed();
}

nrvcore::geom::PointT<float> OS_Dialog::GetMinimumSize() const {
  return minimumSize;
}

void OS_Dialog::SetContentSize(nrvcore::geom::PointT<float> contentSize) {
  UI_SetLocalRectF({0, 0, contentSize.x, contentSize.y});
}

nrvcore::geom::PointT<float> OS_Dialog::GetContentSize() const {
  const auto rect = UI_GetLocalRectF(false);
  return {rect.right, rect.bottom};
}

const nrvcore::UTF16String& OS_Dialog::GetTitle() const {
  return title;
}

const DialogStyle& OS_Dialog::GetStyle() const {
  return style;
}

const drawbot::SupplierInterface* OS_Dialog::GetDrawingSupplier() const {
  return supplier;
}

InstalledPresenter::InstalledPresenter(DialogPresenter& presenter)
    : former(OS_Dialog::InstallPresenter(&presenter)) {}

InstalledPresenter::~InstalledPresenter() {
  OS_Dialog::InstallPresenter(former);
}

}  // namespace nrvui::ui
