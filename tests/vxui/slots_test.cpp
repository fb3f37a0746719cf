#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstddef>
#include <vector>

#include "platform/vxui/dialogs.h"
#include "platform/vxui/host_interfaces.h"

namespace {

using Slots = std::vector<std::size_t>;

/// A pointer to a virtual operation holds its slot's offset, on some machines plus 1.
template <class... Operations>
Slots SlotsOf(Operations... operations) {
  return {std::bit_cast<std::array<std::size_t, 2>>(operations)[0] / sizeof(void*)...};
}

}  // namespace

TEST(Slots, VirtualOperationsHaveTheSlotsThatBinariesRelyOn) {
  EXPECT_EQ(SlotsOf(&SheetFactory::CreateSheetHolder, &SheetFactory::RegisterDialogView),
            (Slots{0, 6}));
  EXPECT_EQ(SlotsOf(&DrawingSupplierSource::GetDrawingSupplier), Slots{3});
  EXPECT_EQ(SlotsOf(&SheetHolder::GetSheetView, &SheetHolder::GetLayoutNode, &SheetHolder::GetSheet,
                    &SheetHolder::GetInitialFocus, &SheetHolder::ResizeSheet,
                    &SheetHolder::SetMessageCallback),
            (Slots{0, 1, 2, 3, 4, 5}));

  using nrvui::ui::UI_Dialog;
  using vx::ui::UI_PopupModalDialog;
  const std::size_t view = SlotsOf(&UI_Dialog::UI_ActivationChanged)[0];
  EXPECT_EQ(SlotsOf(&UI_Dialog::UI_ContentRectChanged, &UI_Dialog::UI_DisabledStateChanged),
            (Slots{view + 1, view + 2}));
  const Slots answers = SlotsOf(
      &UI_Dialog::OnReturnKey, &UI_Dialog::OnEscapeKey, &UI_Dialog::OnCloseButton,
      &UI_Dialog::SetResponse, &UI_Dialog::DefaultCloseOk, &UI_Dialog::DefaultCloseCancel,
      &UI_PopupModalDialog::Unused0, &UI_PopupModalDialog::Unused1, &UI_PopupModalDialog::Unused2);
  for (std::size_t i = 0; i < answers.size(); ++i) EXPECT_EQ(answers[i], answers[0] + i);
}
