#include <gtest/gtest.h>

#include "module/story.h"
#include "platform/qpbasic/ledger.h"

// Every fault that the host can cause is caused once, at every place of a whole story.

namespace {

class AllocationCampaign : public testing::TestWithParam<ResultCode> {};

TEST_P(AllocationCampaign, EveryBlockIsRefusedOnce) {
  qpbasic::Ledger& ledger = qpbasic::Ledger::Get();
  size_t place = 0;
  for (bool wasRefused = true; wasRefused && !HasFailure();) {
    SCOPED_TRACE("block " + std::to_string(++place));
    const size_t refusals = ledger.Counts().refusals;
    Story story;
    for (const auto code :
         {ResultCode::kOutOfMemory, ResultCode::kCannot, ResultCode::kParameter}) {
      story.Allow(code);
    }
    ledger.Refuse({.countdown = place, .once = true, .code = GetParam()});
    story.Play();
    ledger.RefuseNothing();
    wasRefused = ledger.Counts().refusals != refusals;
    EXPECT_TRUE(wasRefused || story.IsUndisturbed());
    EXPECT_EQ(story.host.Leftovers(), std::vector<std::string>{});
  }
  EXPECT_GT(place, 100u) << "a dialog takes more blocks than that";
}

INSTANTIATE_TEST_SUITE_P(WithACodeAndWithNoBlock, AllocationCampaign,
                         testing::Values(ResultCode::kOutOfMemory, ResultCode::kSuccess));

}  // namespace
