#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstddef>

#include "platform/vxui/drawing_supplier_source.h"
#include "platform/vxui/sheet_factory.h"
#include "platform/vxui/sheet_holder.h"
#include "platform/vxui/ui_popup_modal_dialog.h"

namespace {

/// A pointer to a virtual operation holds its slot's offset, on some machines plus 1.
template <class Operation>
std::size_t Slot(Operation operation) {
  return std::bit_cast<std::array<std::size_t, 2>>(operation)[0] / sizeof(void*);
}

}  // namespace

TEST(Slots, HostObjectsGoByPosition) {
  EXPECT_EQ(Slot(&SheetFactory::CreateSheetHolder), 0u);
  EXPECT_EQ(Slot(&SheetFactory::RegisterDialogView), 6u);
  EXPECT_EQ(Slot(&DrawingSupplierSource::GetDrawingSupplier), 3u);
  EXPECT_EQ(Slot(&SheetHolder::GetSheetView), 0u);
  EXPECT_EQ(Slot(&SheetHolder::GetLayoutNode), 1u);
  EXPECT_EQ(Slot(&SheetHolder::GetSheet), 2u);
  EXPECT_EQ(Slot(&SheetHolder::GetInitialFocus), 3u);
  EXPECT_EQ(Slot(&SheetHolder::ResizeSheet), 4u);
  EXPECT_EQ(Slot(&SheetHolder::SetMessageCallback), 5u);
}

TEST(Slots, DialogsKeepTheirOrder) {
  using nrvui::ui::UI_Dialog;
  using vx::ui::UI_PopupModalDialog;
  const std::size_t rect = Slot(&UI_Dialog::UI_ContentRectChanged);
  EXPECT_EQ(Slot(&UI_Dialog::UI_ActivationChanged), rect - 1);
  EXPECT_EQ(Slot(&UI_Dialog::UI_DisabledStateChanged), rect + 1);

  const std::size_t last = Slot(&UI_Dialog::DefaultCloseCancel);
  EXPECT_EQ(Slot(&UI_Dialog::DefaultCloseOk), last - 1);
  EXPECT_EQ(Slot(&UI_Dialog::SetResponse), last - 2);
  EXPECT_EQ(Slot(&UI_Dialog::OnCloseButton), last - 3);
  EXPECT_EQ(Slot(&UI_Dialog::OnEscapeKey), last - 4);
  EXPECT_EQ(Slot(&UI_Dialog::OnReturnKey), last - 5);
  EXPECT_EQ(Slot(&UI_PopupModalDialog::MayPopUp), last + 1);
  EXPECT_EQ(Slot(&UI_PopupModalDialog::OnDismiss), last + 3);
}
