#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/vxui/modal_context.h"
#include "platform/vxui/ui_popup_modal_dialog.h"

using namespace vx::ui;
using nrvui::ui::InstalledPresenter;

namespace {

struct Popup : UI_PopupModalDialog {
  Popup()
      : UI_PopupModalDialog(nullptr, u"Popup", {0, 0}, {10, 10}, false, nullptr, false, false, true,
                            true, 0, 1) {}

  bool MayPopUp() override { return allowed; }
  void OnPopUp() override { story += "up "; }
  void OnDismiss() noexcept override { story += "dismissed"; }

  bool allowed = true;
  std::string story;
};

struct ThrowingPresenter final : nrvui::ui::DialogPresenter {
  void Present(nrvui::ui::UI_Dialog& dialog) override {
    dynamic_cast<Popup&>(dialog).story += "shown ";
    throw std::runtime_error("presenter");
  }
};

}  // namespace

TEST(ModalContext, CountsWhatIsAlive) {
  EXPECT_EQ(ModalContext::Depth(), 0);
  try {
    const ModalContext window(false);
    EXPECT_FALSE(ModalContext::IsApplicationBlocked());
    const ModalContext application(true);
    EXPECT_EQ(ModalContext::Depth(), 2);
    EXPECT_TRUE(ModalContext::IsApplicationBlocked());
    throw std::runtime_error("handler");
  } catch (const std::runtime_error&) {
  }
  EXPECT_EQ(ModalContext::Depth(), 0);
  EXPECT_FALSE(ModalContext::IsApplicationBlocked());
}

TEST(PopupModalDialog, IsDismissedHoweverItsRunEnds) {
  const boost::intrusive_ptr<Popup> popup = new Popup;
  ThrowingPresenter presenter;
  const InstalledPresenter installed(presenter);
  EXPECT_THROW(popup->RunModal(), std::runtime_error);
  EXPECT_EQ(popup->story, "up shown dismissed");

  popup->allowed = false;
  popup->story.clear();
  popup->RunModal();
  EXPECT_EQ(popup->story, "");
  EXPECT_EQ(popup->GetResponse(), nrvui::ui::kCancelResponse);
}
