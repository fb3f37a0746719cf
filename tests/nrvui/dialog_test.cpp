#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

#include "nrvui/test_dialog.h"
#include "platform/nrvcore/error.h"
#include "platform/nrvui/message_function_adapter.h"

using namespace nrvui::ui;

namespace {

struct CallingPresenter final : DialogPresenter {
  void Present(UI_Dialog& dialog) override { call(dialog); }

  std::function<void(UI_Dialog&)> call;
};

}  // namespace

TEST(Dialog, ModalRunLeavesTheResponse) {
  CallingPresenter presenter;
  const boost::intrusive_ptr<PlainDialog> dialog = new PlainDialog;
  EXPECT_THROW(dialog->RunModal(), nrvcore::config::Error) << "nobody to show it to";
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

  MessageT<UI_Node> generic(*node);
  for (MessageT<UI_Node>* message : {&generic, static_cast<MessageT<UI_Node>*>(nullptr)}) {
    try {
      adapter(message);
      ADD_FAILURE() << "no error";
    } catch (const nrvcore::config::Error& error) {
      EXPECT_STREQ(error.what(),
                   "$$$/nrvcore/utility/Error/InvalidTypeConversion=Invalid type conversion.");
      EXPECT_EQ(error.Level(), nrvcore::config::ErrorLevel::kError);
      EXPECT_EQ(error.Number(), 105u);
      EXPECT_EQ(error.Code(), 21);
      EXPECT_TRUE(error.Flag());
    }
  }
}
