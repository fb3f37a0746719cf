#include "platform/qpbasic/ledger.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>
#include <vector>

#include "platform/qpbasic/qpbasic.h"

namespace {

using qpbasic::Ledger;

class LedgerTest : public testing::Test {
 protected:
  ~LedgerTest() override {
    ledger.ClearRefusal();
    ledger.ClearFaults();
  }

  Ledger& ledger = Ledger::Get();
  const uint64_t mark = ledger.Mark();
  const qpbasic::LedgerCounts before = ledger.Counts();
};

TEST_F(LedgerTest, ReportsLeakedForeignAndTwiceFreedBlocks) {
  void* empty = nullptr;
  void* block = nullptr;
  ASSERT_EQ(ledger.Allocate(40, "table", &block), ResultCode::kSuccess);
  ASSERT_EQ(QPBasicAllocateBlock(0, &empty), ResultCode::kSuccess);
  ASSERT_NE(empty, nullptr);
  EXPECT_EQ(QPBasicAllocateBlock(8, nullptr), ResultCode::kParameter);
  EXPECT_TRUE(ledger.Unfreed(ledger.Mark()).empty()) << "after the mark";
  EXPECT_EQ(ledger.Counts().blocks, before.blocks + 2);
  EXPECT_EQ(ledger.Counts().bytes, before.bytes + 40);
  EXPECT_EQ(QPBasicFreeBlock(empty), ResultCode::kSuccess);
  const auto forgotten = ledger.Unfreed(mark);
  ASSERT_EQ(forgotten.size(), 1U);
  EXPECT_NE(forgotten[0].find("of 40 bytes"), std::string::npos);
  EXPECT_NE(forgotten[0].find("(table)"), std::string::npos);

  std::vector<char> foreign(64);
  EXPECT_EQ(QPBasicFreeBlock(foreign.data()), qpbasic::kUnknownBlock);
  EXPECT_EQ(QPBasicFreeBlock(static_cast<char*>(block) + 16), qpbasic::kUnknownBlock);
  EXPECT_EQ(QPBasicFreeBlock(block), ResultCode::kSuccess);
  EXPECT_EQ(QPBasicFreeBlock(block), qpbasic::kUnknownBlock);
  EXPECT_EQ(QPBasicFreeBlock(nullptr), ResultCode::kSuccess);
  const auto faults = ledger.Faults();
  ASSERT_EQ(faults.size(), 3U);
  EXPECT_TRUE(faults[1].starts_with("freed but foreign: ")) << faults[1];
  EXPECT_TRUE(faults[2].starts_with("freed twice: block ")) << faults[2];
  EXPECT_NE(faults[2].find("of 40 bytes"), std::string::npos) << faults[2];
  EXPECT_EQ(ledger.Counts().blocks, before.blocks);
  EXPECT_EQ(ledger.Counts().bytes, before.bytes);
}

TEST_F(LedgerTest, RecognisesDoubleFreesAmongTheLast1024AndKeepsAHundredFaults) {
  std::vector<void*> blocks(1025);
  for (void*& block : blocks) ASSERT_EQ(QPBasicAllocateBlock(8, &block), ResultCode::kSuccess);
  for (void* block : blocks) ASSERT_EQ(QPBasicFreeBlock(block), ResultCode::kSuccess);
  for (int i = 0; i < 101; ++i)
    EXPECT_EQ(QPBasicFreeBlock(i < 2 ? blocks[i] : &ledger), qpbasic::kUnknownBlock);
  EXPECT_TRUE(ledger.Faults()[0].starts_with("freed but foreign: "));
  EXPECT_TRUE(ledger.Faults()[1].starts_with("freed twice: "));
  EXPECT_EQ(ledger.Faults().size(), 100U);
  EXPECT_EQ(ledger.Counts().faults, before.faults + 101);
  ledger.ClearFaults();
  EXPECT_EQ(ledger.Counts().faults, 0U);
}

TEST_F(LedgerTest, RefusesOnlyTheChosenAllocation) {
  for (const ResultCode answer : {ResultCode{-108}, ResultCode::kSuccess}) {
    ledger.Refuse({.countdown = 2, .code = answer});
    for (const bool given : {true, false, true}) {
      void* block = &ledger;
      const ResultCode code = QPBasicAllocateBlock(8, &block);
      EXPECT_EQ(code, given ? ResultCode::kSuccess : answer);
      EXPECT_EQ(block != nullptr, given);
      EXPECT_EQ(QPBasicFreeBlock(block), ResultCode::kSuccess);
    }
  }
}

TEST_F(LedgerTest, FindsEveryBlockAmongThousands) {
  std::mt19937 random(1);  // blocks of one size would be evenly spaced
  std::vector<void*> blocks(10000);
  for (int step = 0; step < 50000; ++step) {
    void*& block = blocks[random() % blocks.size()];
    ASSERT_EQ(QPBasicFreeBlock(std::exchange(block, nullptr)), ResultCode::kSuccess) << step;
    ASSERT_EQ(QPBasicAllocateBlock(random() % 1000, &block), ResultCode::kSuccess);
  }
  for (void* block : blocks) ASSERT_EQ(QPBasicFreeBlock(block), ResultCode::kSuccess);
  EXPECT_EQ(ledger.Counts().blocks, before.blocks);
  EXPECT_EQ(ledger.Counts().bytes, before.bytes);
  EXPECT_EQ(ledger.Counts().faults, before.faults);
}

// The last test of the ledger, since watching does not end. The sanitizers would stop at the first
// write.
#ifndef __SANITIZE_ADDRESS__
TEST_F(LedgerTest, WatchedBlocksReportWritesBeyondTheEndAndAfterTheRelease) {
  ledger.WatchContents();
  void* blocks[3];
  for (void*& block : blocks) ASSERT_EQ(QPBasicAllocateBlock(24, &block), ResultCode::kSuccess);
  auto* const first = static_cast<unsigned char*>(blocks[0]);
  EXPECT_EQ(first[23], 0xA5);
  first[24] = 0;
  for (void* block : blocks) ASSERT_EQ(QPBasicFreeBlock(block), ResultCode::kSuccess);
  EXPECT_EQ(first[0], 0xDD);
  static_cast<unsigned char*>(blocks[1])[23] = 0;
  const auto faults = ledger.Faults();
  ASSERT_EQ(faults.size(), 2U);
  EXPECT_TRUE(faults[0].starts_with("written beyond its end: block ")) << faults[0];
  EXPECT_TRUE(faults[1].starts_with("written after its release: block ")) << faults[1];
}
#endif

}  // namespace
