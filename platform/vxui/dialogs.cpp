#include "platform/vxui/dialogs.h"

#include <boost/core/noncopyable.hpp>

namespace vx::ui {

namespace {

class PoppedUp : boost::noncopyable {
 public:
  explicit PoppedUp(UI_PopupModalDialog& popup) : dialog(popup) { dialog.OnPopUp(); }
  ~PoppedUp() { dialog.OnDismiss(); }

 private:
  UI_PopupModalDialog& dialog;
};

}  // namespace

UI_PopupModalDialog::~UI_PopupModalDialog() = default;

void UI_PopupModalDialog::RunModal() {
  if (!MayPopUp()) return SetResponse(nrvui::ui::kCancelResponse);
  // OnDismiss comes after the toolkit's run, at whose end it releases its own reference.
  const boost::intrusive_ptr<UI_Dialog> kept = UI_GetReferenceCount() > 0 ? this : nullptr;
  const PoppedUp poppedUp(*this);
  UI_Dialog::RunModal();
}

bool UI_PopupModalDialog::MayPopUp() {
  return true;
}

void UI_PopupModalDialog::OnPopUp() {}
void UI_PopupModalDialog::OnDismiss() noexcept {}

UI_FloatingDialog::~UI_FloatingDialog() = default;

}  // namespace vx::ui
