#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/vxui/modal_context.h"
#include "platform/vxui/ui_popup_modal_dialog.h"

using namespace vx::ui;

namespace {

struct Popup final : UI_PopupModalDialog, nrvui::ui::DialogPresenter {
  Popup()
      : UI_PopupModalDialog(nullptr, u"Popup", {0, 0}, {10, 10}, false, nullptr, false, false, true,
                            true, 0, 1) {}

  bool MayPopUp() override { return allowed; }
  void OnPopUp() override { story += "up "; }
  void OnDismiss() noexcept override { story += "dismissed "; }
  void Present(nrvui::ui::UI_Dialog&) override {
    if (throws) throw std::runtime_error("presenter");
  }

  bool allowed = true;
  bool throws = true;
  std::string story;
};

}  // namespace

TEST(ModalContext, BlocksTheApplicationWhileOneThatDoesIsAlive) {
  const ModalContext window(false);
  EXPECT_FALSE(ModalContext::IsApplicationBlocked());
  {
    const ModalContext application(true);
    EXPECT_TRUE(ModalContext::IsApplicationBlocked());
  }
  EXPECT_FALSE(ModalContext::IsApplicationBlocked());
}

TEST(PopupModalDialog, IsDismissedHoweverItsRunEnds) {
  const boost::intrusive_ptr<Popup> popup = new Popup;
  const nrvui::ui::InstalledPresenter installed(*popup);
  EXPECT_THROW(popup->RunModal(), std::runtime_error);
  EXPECT_EQ(popup->story, "up dismissed ");

  popup->throws = false;
  popup->RunModal();
  EXPECT_EQ(popup->story, "up dismissed up dismissed ");
  EXPECT_EQ(popup->GetResponse(), nrvui::ui::kCancelResponse) << "no response counts as cancel";

  popup->allowed = false;
  popup->RunModal();
  EXPECT_EQ(popup->story, "up dismissed up dismissed ") << "it did not pop up again";
}
