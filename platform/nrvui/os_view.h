#pragma once

#include "platform/nrvui/ui_sub_view.h"

namespace nrvui::ui {

/// A view with a window of its own: the root view of a dialog.
class NRV_EXPORT OS_View : public UI_SubView {
 public:
  OS_View();
  ~OS_View() override;
};

}  // namespace nrvui::ui
