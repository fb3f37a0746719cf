#include "platform/nrvui/os_dialog.h"

#include <boost/core/noncopyable.hpp>
#include <stdexcept>

#include "platform/nrvcore/error.h"
#include "platform/nrvui/dialog_presenter.h"
#include "platform/nrvui/ui_dialog.h"

namespace nrvui {

drawbot::SupplierInterface::~SupplierInterface() = default;

datatransfer::OS_DropTarget::OS_DropTarget() = default;
datatransfer::OS_DropTarget::~OS_DropTarget() = default;

}  // namespace nrvui

namespace nrvui::ui {

using nrvcore::geom::Bounded;
using nrvcore::geom::kGreatestLength;

namespace {

constexpr const char* kNoPresenter =
    "$$$/nrvui/Dialog/Error/NoPresenter=No display is available for the dialog.";

class WhileOpen : boost::noncopyable {
 public:
  explicit WhileOpen(bool& isDialogOpen) : isOpen(isDialogOpen) { isOpen = true; }
  ~WhileOpen() { isOpen = false; }

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
      dialogPoint{Bounded(point.x, -kGreatestLength), Bounded(point.y, -kGreatestLength)},
      style(windowStyle) {
  SetContentSize(contentSize);
}

OS_Dialog::~OS_Dialog() = default;

void OS_Dialog::RunModal() {
  DialogPresenter* const presenter = InstalledPresenter::Current();
  if (presenter == nullptr) nrvcore::config::ThrowError(kNoPresenter);
  if (isOpen) throw std::logic_error("the dialog is open already");
  // A handler may release all other references. A count of 0 means that the dialog is not on the
  // heap; then the last release would delete it.
  const boost::intrusive_ptr<OS_Dialog> kept = UI_GetReferenceCount() > 0 ? this : nullptr;
  const WhileOpen whileOpen(isOpen);
  auto& dialog = static_cast<UI_Dialog&>(*this);
  dialog.SetResponse(kNoResponse);
  presenter->Present(dialog);
  if (dialog.GetResponse() == kNoResponse) dialog.SetResponse(kCancelResponse);
}

void OS_Dialog::Center() {
  SetPlacement(DialogPlacement::kCentered);
}

void OS_Dialog::SetPlacement(DialogPlacement newPlacement) {
  placement = newPlacement;
  UI_Changed();
}

void OS_Dialog::SetMinimumSize(nrvcore::geom::PointT<float> newMinimumSize) {
  minimumSize = {Bounded(newMinimumSize.x, 0), Bounded(newMinimumSize.y, 0)};
  UI_Changed();
}

void OS_Dialog::SetContentSize(nrvcore::geom::PointT<float> contentSize) {
  UI_SetLocalRectF({0, 0, contentSize.x, contentSize.y});
}

nrvcore::geom::PointT<float> OS_Dialog::GetContentSize() const {
  const auto rect = UI_GetLocalRectF();
  return {rect.right, rect.bottom};
}

}  // namespace nrvui::ui
