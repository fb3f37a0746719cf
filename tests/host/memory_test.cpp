#include <gtest/gtest.h>

#include "platform/qpbasic/ledger.h"
#include "platform/standin/module.h"

TEST(ModuleMemory, EveryAllocationOperatorUsesTheHostsBlocks) {
  const standin::ModuleImage plugin(MEMORY_PLUGIN);
  EXPECT_EQ(plugin.Entry()("allowed", "", nullptr), ResultCode::kSuccess);
  qpbasic::Ledger& ledger = qpbasic::Ledger::Get();
  for (const auto code : {ResultCode::kOutOfMemory, ResultCode::kSuccess}) {
    ledger.Refuse({.countdown = 1, .once = false, .code = code});
    EXPECT_EQ(plugin.Entry()("refused", "", nullptr), ResultCode::kSuccess);
    ledger.ClearRefusal();
  }
}
