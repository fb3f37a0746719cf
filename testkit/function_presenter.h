#pragma once

#include <functional>
#include <utility>

#include "platform/nrvui/dialog_presenter.h"

/// Presents the dialogs that run during its life by calling a function.
class FunctionPresenter final : nrvui::ui::DialogPresenter {
 public:
  explicit FunctionPresenter(std::function<void(nrvui::ui::UI_Dialog&)> function)
      : present(std::move(function)) {}

 private:
  void Present(nrvui::ui::UI_Dialog& dialog) override { present(dialog); }

  std::function<void(nrvui::ui::UI_Dialog&)> present;
  nrvui::ui::InstalledPresenter installed{*this};
};
