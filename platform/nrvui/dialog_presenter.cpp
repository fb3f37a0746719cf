#include "platform/nrvui/dialog_presenter.h"

#include <utility>

namespace nrvui::ui {

namespace {

DialogPresenter* installedPresenter = nullptr;

}  // namespace

InstalledPresenter::InstalledPresenter(DialogPresenter& presenter)
    : former(std::exchange(installedPresenter, &presenter)) {}

InstalledPresenter::~InstalledPresenter() {
  installedPresenter = former;
}

DialogPresenter* InstalledPresenter::Current() {
  return installedPresenter;
}

}  // namespace nrvui::ui
