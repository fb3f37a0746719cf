#include "platform/vxui/dialogs.h"

namespace vx::ui {

namespace {

int modalDepth = 0;

}  // namespace

ModalContext::ModalContext(bool) {
  ++modalDepth;
}

ModalContext::~ModalContext() {
  --modalDepth;
}

int ModalContext::Depth() {
  return modalDepth;
}

UI_PopupModalDialog::~UI_PopupModalDialog() = default;

void UI_PopupModalDialog::RunModal() {
  UI_Dialog::RunModal();
}

void UI_PopupModalDialog::Unused0() {}
void UI_PopupModalDialog::Unused1() {}
void UI_PopupModalDialog::Unused2() {}

UI_FloatingDialog::~UI_FloatingDialog() = default;

}  // namespace vx::ui
