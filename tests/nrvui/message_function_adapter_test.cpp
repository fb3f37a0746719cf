#include "platform/nrvui/message_function_adapter.h"

#include <gtest/gtest.h>

#include "platform/nrvcore/error.h"
#include "platform/nrvui/ui_message.h"
#include "platform/nrvui/ui_node.h"

using namespace nrvui::ui;

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
