#include "platform/nrvui/dialog_presenter.h"

#include <utility>

namespace nrvui::ui {

namespace {

DialogPresenter* installedPresenter = nullptr;

}  // namespace

InstalledPresenter::InstalledPresenter(DialogPresenter& presenter)
    : previous(std::exchange(installedPresenter, &presenter)) {}

InstalledPresenter::~InstalledPresenter() {
  installedPresenter = previous;
}

DialogPresenter* InstalledPresenter::Current() {
  return installedPresenter;
}

}  // namespace nrvui::ui
