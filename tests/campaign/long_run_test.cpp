#include <algorithm>
#include <ctime>
#include <fstream>
#include <iostream>

#include "campaign/built_module.h"
#include "campaign/campaign.h"
#include "platform/nrvui/scripted_presenter.h"
#include "platform/qpbasic/ledger.h"

namespace {

constexpr size_t kBatches = 20;

/// What the process has taken, and what a batch of work cost it.
struct Measure {
  long residentPages;
  long descriptors;
  std::clock_t ticks;
  size_t blocks;
};

long ResidentPages() {
  long total = 0;
  long resident = 0;
  std::ifstream("/proc/self/statm") >> total >> resident;
  return resident;
}

long Descriptors() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

class LongRun : public testing::Test {
 protected:
  void RunDialogs(size_t runs) {
    for (size_t i = 0; i < runs; ++i) {
      MosaicParameters record{};
      record.boundsRight = 300;
      record.boundsBottom = 200;
      MosaicDialogState state{};
      ASSERT_EQ(built.RunDialog(record, state), ResultCode::kSuccess);
    }
  }

  void UnloadAndReload(size_t times) {
    for (size_t i = 0; i < times; ++i) {
      ASSERT_EQ(built.module.Unload(), ResultCode::kSuccess);
      ASSERT_EQ(built.module.Reload(), ResultCode::kSuccess);
    }
  }

  Measure PlayBatch(size_t dialogs, size_t cycles) {
    const std::clock_t start = std::clock();
    RunDialogs(dialogs);
    UnloadAndReload(cycles);
    const std::clock_t ticks = std::clock() - start;
    return {ResidentPages(), Descriptors(), ticks, qpbasic::Ledger::Get().Counts().blocks};
  }

  nrvui::gestures::ScriptedPresenter person{nrvui::gestures::GestureScript::Parse(
      "enter HorizontalCountTxt 12\nclick MosaicUseRatioButton\nkey Return", "long run")};
  nrvui::ui::InstalledPresenter installed{person};
  BuiltModule built;
};

TEST_F(LongRun, TakesNoMoreAndGetsNoSlower) {
  const size_t dialogs = campaign::Count(2000 / campaign::Step(1), 100000) / kBatches;
  const size_t cycles = campaign::Count(60, 1000) / kBatches;
  std::vector<Measure> batches;
  for (size_t i = 0; i < kBatches; ++i) batches.push_back(PlayBatch(dialogs, cycles));

  const Measure& warm = batches[kBatches / 4];
  const Measure& last = batches.back();
  EXPECT_EQ(last.descriptors, warm.descriptors);
  EXPECT_EQ(last.blocks, warm.blocks);
#ifndef __SANITIZE_ADDRESS__  // which keeps freed memory back for a while
  EXPECT_LE(last.residentPages, warm.residentPages + 32);
#endif
  const auto fastest = [](auto from, auto to) {
    return std::min_element(from, to, [](auto& a, auto& b) { return a.ticks < b.ticks; })->ticks;
  };
  const auto middle = batches.begin() + kBatches / 2;
  EXPECT_LE(fastest(middle, batches.end()), fastest(batches.begin(), middle) * 3 / 2);
  for (const Measure* at : {&warm, &last})
    std::cout << at->residentPages * 4 << " kB resident, " << at->descriptors << " descriptors, "
              << at->ticks * 1000 / CLOCKS_PER_SEC << " ms for " << dialogs << " dialogs and "
              << cycles << " reloads\n";
}

}  // namespace
