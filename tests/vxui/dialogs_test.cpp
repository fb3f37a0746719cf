#include "platform/vxui/dialogs.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>

#include "testkit/function_presenter.h"

using namespace vx::ui;

namespace {

struct Popup final : UI_PopupModalDialog {
  explicit Popup(std::string& callLog)
      : UI_PopupModalDialog(nullptr, u"Popup", {0, 0}, {10, 10}, false, nullptr, false, false, true,
                            true, 0, 1),
        calls(callLog) {}
  ~Popup() override { calls += "gone"; }

  bool MayPopUp() override { return allowed; }
  void OnPopUp() override { calls += "up "; }
  void OnDismiss() noexcept override { calls += "dismissed "; }

  bool allowed = true;
  std::string& calls;
};

}  // namespace

TEST(PopupModalDialog, OnDismissFollowsEveryOnPopUp) {
  std::string calls;
  boost::intrusive_ptr<Popup> popup = new Popup(calls);
  std::function<void()> whilePresented = [] { throw std::runtime_error("presenter"); };
  const FunctionPresenter presenter([&](nrvui::ui::UI_Dialog&) { whilePresented(); });
  EXPECT_THROW(popup->RunModal(), std::runtime_error);
  EXPECT_EQ(calls, "up dismissed ");

  whilePresented = [] {};
  popup->RunModal();
  EXPECT_EQ(calls, "up dismissed up dismissed ");
  EXPECT_EQ(popup->GetResponse(), nrvui::ui::kCancelResponse) << "no response counts as cancel";

  popup->allowed = false;
  popup->RunModal();
  EXPECT_EQ(calls, "up dismissed up dismissed ") << "MayPopUp returned false";

  calls.clear();
  popup->allowed = true;
  whilePresented = [&] { popup.reset(); };
  popup->RunModal();
  EXPECT_EQ(calls, "up dismissed gone");
}
