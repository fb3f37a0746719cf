#include "platform/vxui/dialogs.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>

#include "testkit/function_presenter.h"

using namespace vx::ui;

namespace {

struct Popup final : UI_PopupModalDialog {
  explicit Popup(std::string& itsStory)
      : UI_PopupModalDialog(nullptr, u"Popup", {0, 0}, {10, 10}, false, nullptr, false, false, true,
                            true, 0, 1),
        story(itsStory) {}
  ~Popup() override { story += "gone"; }

  bool MayPopUp() override { return allowed; }
  void OnPopUp() override { story += "up "; }
  void OnDismiss() noexcept override { story += "dismissed "; }

  bool allowed = true;
  std::string& story;
};

}  // namespace

TEST(PopupModalDialog, IsDismissedHoweverItsRunEnds) {
  std::string story;
  boost::intrusive_ptr<Popup> popup = new Popup(story);
  std::function<void()> whilePresented = [] { throw std::runtime_error("presenter"); };
  const FunctionPresenter presenter([&](nrvui::ui::UI_Dialog&) { whilePresented(); });
  EXPECT_THROW(popup->RunModal(), std::runtime_error);
  EXPECT_EQ(story, "up dismissed ");

  whilePresented = [] {};
  popup->RunModal();
  EXPECT_EQ(story, "up dismissed up dismissed ");
  EXPECT_EQ(popup->GetResponse(), nrvui::ui::kCancelResponse) << "no response counts as cancel";

  popup->allowed = false;
  popup->RunModal();
  EXPECT_EQ(story, "up dismissed up dismissed ") << "it did not pop up again";

  story.clear();
  popup->allowed = true;
  whilePresented = [&] { popup.reset(); };
  popup->RunModal();
  EXPECT_EQ(story, "up dismissed gone");
}
