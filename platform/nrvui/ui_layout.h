#pragma once

#include "platform/nrvui/ui_sub_view.h"

namespace nrvui::ui {

/// The layout node of a built layout, between the sheet view and the panels. Its rectangle is the
/// room that the content takes; whoever lays it out anew sets it, and the dialog follows.
class NRV_EXPORT UI_Layout : public UI_SubView {
 public:
  UI_Layout();
  ~UI_Layout() override;
};

}  // namespace nrvui::ui
