#include "platform/qpbasic/ledger.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <thread>
#include <vector>

#include "platform/qpbasic/qpbasic.h"

namespace {

using qpbasic::Ledger;
using qpbasic::Refusal;

class LedgerTest : public testing::Test {
 protected:
  ~LedgerTest() override {
    ledger.RefuseNothing();
    ledger.ForgetFaults();
  }

  void* Take(size_t size) {
    void* block = &ledger;
    code = QPBasicAllocateBlock(size, &block);
    return block;
  }

  Ledger& ledger = Ledger::Get();
  const uint64_t mark = ledger.Mark();
  const qpbasic::LedgerCounts before = ledger.Counts();
  ResultCode code{};
};

TEST_F(LedgerTest, CountsWhatStandsAndNamesWhatIsForgotten) {
  void* const empty = Take(0);
  void* named = nullptr;
  ASSERT_EQ(ledger.Allocate(24, "table", &named), ResultCode::kSuccess);
  ASSERT_NE(empty, nullptr);
  EXPECT_EQ(reinterpret_cast<uintptr_t>(named) % alignof(std::max_align_t), 0U);
  EXPECT_EQ(ledger.Counts().blocks, before.blocks + 2);
  EXPECT_EQ(ledger.Counts().bytes, before.bytes + 24);

  EXPECT_EQ(QPBasicFreeBlock(empty), ResultCode::kSuccess);
  const auto forgotten = ledger.Forgotten(mark);
  ASSERT_EQ(forgotten.size(), 1U);
  EXPECT_NE(forgotten[0].find("of 24 bytes"), std::string::npos);
  EXPECT_NE(forgotten[0].find("(table)"), std::string::npos);

  EXPECT_EQ(ledger.Free(named), ResultCode::kSuccess);
  EXPECT_TRUE(ledger.Forgotten(mark).empty());
  EXPECT_EQ(ledger.Counts().bytes, before.bytes);
  EXPECT_EQ(ledger.Counts().totalBytes, before.totalBytes + 24);
  EXPECT_EQ(ledger.Counts().faults, 0U);
}

TEST_F(LedgerTest, FindsForeignAndDoubleFreesAndLeavesThemAlone) {
  std::vector<char> foreign(64, 'x');
  void* const block = Take(40);
  void* const inside = static_cast<char*>(block) + 16;
  EXPECT_EQ(QPBasicFreeBlock(foreign.data()), qpbasic::kUnknownBlock);
  EXPECT_EQ(QPBasicFreeBlock(inside), qpbasic::kUnknownBlock);
  EXPECT_EQ(QPBasicFreeBlock(reinterpret_cast<void*>(0x1000)), qpbasic::kUnknownBlock);
  std::memset(block, 1, 40);
  EXPECT_EQ(QPBasicFreeBlock(block), ResultCode::kSuccess);
  EXPECT_EQ(QPBasicFreeBlock(block), qpbasic::kUnknownBlock);
  EXPECT_EQ(QPBasicFreeBlock(nullptr), ResultCode::kSuccess);

  const auto faults = ledger.Faults();
  ASSERT_EQ(faults.size(), 4U);
  EXPECT_TRUE(faults[0].starts_with("freed but foreign: ")) << faults[0];
  EXPECT_TRUE(faults[1].starts_with("freed but foreign: ")) << faults[1];
  EXPECT_TRUE(faults[3].starts_with("freed twice: block ")) << faults[3];
  EXPECT_NE(faults[3].find("of 40 bytes"), std::string::npos) << faults[3];
  EXPECT_EQ(ledger.Counts().blocks, before.blocks);
}

TEST_F(LedgerTest, RefusesTheAllocationThatIsAskedFor) {
  struct Case {
    Refusal refusal;
    std::vector<bool> given;  // call by call
  };
  const Case cases[] = {
      {{.countdown = 1}, {false, true, true}},
      {{.countdown = 3}, {true, true, false, true}},
      {{.countdown = 2, .once = false}, {true, false, false}},
      {{.countdown = 1, .code = ResultCode::kSuccess}, {false, true}},
      {{.countdown = 1, .code = ResultCode{-108}}, {false, true}},
  };
  for (const Case& test : cases) {
    ledger.Refuse(test.refusal);
    for (const bool given : test.given) {
      void* const block = Take(8);
      EXPECT_EQ(block != nullptr, given);
      EXPECT_EQ(code, given ? ResultCode::kSuccess : test.refusal.code);
      static_cast<void>(QPBasicFreeBlock(block));
    }
    ledger.RefuseNothing();
  }
  EXPECT_EQ(ledger.Counts().blocks, before.blocks);
}

TEST_F(LedgerTest, KeepsItsBookThroughManyBlocksInAnyOrder) {
  std::mt19937 random(20);
  std::vector<void*> blocks;
  for (int step = 0; step < 40000; ++step) {
    if (blocks.empty() || random() % 5 < 3) {
      blocks.push_back(Take(random() % 100));
      continue;
    }
    std::swap(blocks[random() % blocks.size()], blocks.back());
    ASSERT_EQ(QPBasicFreeBlock(blocks.back()), ResultCode::kSuccess) << "step " << step;
    blocks.pop_back();
  }
  EXPECT_EQ(ledger.Counts().blocks, before.blocks + blocks.size());
  for (void* block : blocks) ASSERT_EQ(QPBasicFreeBlock(block), ResultCode::kSuccess);
  EXPECT_EQ(ledger.Counts().blocks, before.blocks);
  EXPECT_EQ(ledger.Counts().bytes, before.bytes);
}

TEST_F(LedgerTest, ServesSeveralThreads) {
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i)
    threads.emplace_back([] {
      for (int n = 0; n < 5000; ++n) {
        void* block = nullptr;
        static_cast<void>(QPBasicAllocateBlock(16, &block));
        static_cast<void>(QPBasicFreeBlock(block));
      }
    });
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(ledger.Counts().totalBlocks, before.totalBlocks + 20000);
  EXPECT_EQ(ledger.Counts().blocks, before.blocks);
  EXPECT_EQ(ledger.Counts().faults, 0U);
}

}  // namespace
