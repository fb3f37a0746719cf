#include "platform/nrvui/dialog_presenter.h"

#include "platform/nrvui/os_dialog.h"

namespace nrvui::ui {

InstalledPresenter::InstalledPresenter(DialogPresenter& presenter)
    : former(OS_Dialog::InstallPresenter(&presenter)) {}

InstalledPresenter::~InstalledPresenter() {
  OS_Dialog::InstallPresenter(former);
}

}  // namespace nrvui::ui
