#include <gtest/gtest.h>

#include <boost/smart_ptr/make_shared.hpp>
#include <functional>
#include <stdexcept>

#include "nrvui/test_dialog.h"
#include "platform/nrvcore/error.h"
#include "platform/nrvui/message_function_adapter.h"
#include "platform/nrvui/ui_dialog.h"
#include "platform/nrvui/ui_node_manager.h"

using namespace nrvui::ui;
using nrvcore::geom::PointT;
using nrvcore::geom::RectT;

namespace {

struct CallingPresenter final : DialogPresenter {
  std::function<void(UI_Dialog&)> call;

  void Present(UI_Dialog& dialog) override { call(dialog); }
};

}  // namespace

TEST(Dialog, RootViewFollowsTheContentSize) {
  boost::intrusive_ptr<PlainDialog> dialog = new PlainDialog;
  const boost::intrusive_ptr<OS_View> root = dialog->GetRootView();
  EXPECT_EQ(root->UI_GetParentContainer(), dialog.get());
  EXPECT_EQ(root->UI_GetLocalRectF(false), (RectT<float>{0, 0, 100, 100}));

  dialog->SetMinimumSize({200, 50});
  EXPECT_EQ(dialog->GetContentSize(), (PointT<float>{100, 100})) << "only people are bound by it";
  dialog->SetContentSize({200, 50});
  EXPECT_EQ(root->UI_GetLocalRectF(false), (RectT<float>{0, 0, 200, 50}));

  EXPECT_EQ(dialog->GetPlacement(), DialogPlacement::kAtPoint);
  dialog->Center();
  EXPECT_EQ(dialog->GetPlacement(), DialogPlacement::kCentered);
  dialog->Position();
  EXPECT_EQ(dialog->GetPlacement(), DialogPlacement::kPositioned);

  dialog.reset();
  EXPECT_EQ(root->UI_GetParentContainer(), nullptr);
}

TEST(Dialog, ReturnEscapeAndCloseBoxAnswerToTheButtons) {
  enum Act { kReturn, kEscape, kCloseBox };
  using Arrange = void (*)(TestDialog&);
  const Arrange asBuilt = [](TestDialog&) {};
  const Arrange noButtons = [](TestDialog& test) {
    test.dialog->SetOkButton(nullptr);
    test.dialog->SetCancelButton(nullptr);
  };
  const Arrange disabled = [](TestDialog& test) {
    test.ok->SetDisabled(true);
    test.cancel->SetDisabled(true);
  };
  const Arrange hidden = [](TestDialog& test) { test.panel->UI_Show(false); };
  const struct {
    const char* name;
    Arrange arrange;
    Act act;
    DialogResponse response;
  } cases[] = {
      {"return", asBuilt, kReturn, kOkResponse},
      {"return without OK button", noButtons, kReturn, kNoResponse},
      {"return with OK disabled", disabled, kReturn, kNoResponse},
      {"return with OK hidden", hidden, kReturn, kNoResponse},
      {"escape", asBuilt, kEscape, kCancelResponse},
      {"escape without cancel button", noButtons, kEscape, kCancelResponse},
      {"escape with cancel disabled", disabled, kEscape, kNoResponse},
      {"close box", asBuilt, kCloseBox, kCancelResponse},
      {"close box with cancel disabled", disabled, kCloseBox, kCancelResponse},
  };
  for (const auto& [name, arrange, act, response] : cases) {
    TestDialog test;
    arrange(test);
    if (act == kReturn) test.dialog->OnReturnKey();
    if (act == kEscape) test.dialog->OnEscapeKey();
    if (act == kCloseBox) test.dialog->OnCloseButton();
    EXPECT_EQ(test.dialog->GetResponse(), response) << name;
  }
}

TEST(Dialog, ModalRunLeavesTheResponse) {
  const boost::intrusive_ptr<PlainDialog> dialog = new PlainDialog;
  EXPECT_THROW(dialog->RunModal(), nrvcore::config::Error) << "nobody to show it to";

  CallingPresenter presenter;
  {
    const InstalledPresenter installed(presenter);
    presenter.call = [](UI_Dialog& shown) { shown.DefaultCloseOk(); };
    dialog->RunModal();
    EXPECT_EQ(dialog->GetResponse(), kOkResponse);

    presenter.call = [](UI_Dialog& shown) { EXPECT_EQ(shown.GetResponse(), kNoResponse); };
    dialog->RunModal();
    EXPECT_EQ(dialog->GetResponse(), kCancelResponse) << "no response counts as cancel";

    presenter.call = [](UI_Dialog&) { throw std::runtime_error("handler"); };
    EXPECT_THROW(dialog->RunModal(), std::runtime_error);
  }
  EXPECT_EQ(OS_Dialog::InstallPresenter(nullptr), nullptr) << "the former presenter is back";
}

TEST(MessageFunctionAdapter, DeliversOnlyItsOwnClassOfMessage) {
  using Adapter = MessageFunctionAdapter<MessageT<UI_Node>, UI_ControlChangedMessage>;
  const boost::intrusive_ptr<UI_Node> node = new UI_Node;
  int delivered = 0;
  const Adapter adapter([&](UI_ControlChangedMessage*) { ++delivered; });

  UI_ControlChangedMessage changed(*node);
  adapter(&changed);
  EXPECT_EQ(delivered, 1);
  EXPECT_THROW(Adapter({})(&changed), boost::bad_function_call);

  MessageT<UI_Node> generic(*node);
  for (MessageT<UI_Node>* message : {&generic, static_cast<MessageT<UI_Node>*>(nullptr)}) {
    try {
      adapter(message);
      ADD_FAILURE() << "no error";
    } catch (const nrvcore::config::Error& error) {
      EXPECT_STREQ(error.Key(),
                   "$$$/nrvcore/utility/Error/InvalidTypeConversion=Invalid type conversion.");
      EXPECT_EQ(error.Level(), nrvcore::config::ErrorLevel::kError);
      EXPECT_EQ(error.Number(), 105u);
      EXPECT_EQ(error.Code(), 21);
      EXPECT_TRUE(error.Flag());
    }
  }
  EXPECT_EQ(delivered, 1);
}

TEST(CustomSettings, AreSharedByEveryoneWhoAsks) {
  UI_NodeManager::Get(true).GetCustomSettingsManager().SetSetting("key", true);
  const auto& settings = UI_NodeManager::Get(false).GetCustomSettingsManager().GetSettings();
  EXPECT_TRUE(boost::any_cast<bool>(settings.at("key")));
  UI_NodeManager::Get(false).GetCustomSettingsManager().RemoveSetting("key");
  EXPECT_TRUE(settings.empty());
}
