#include <algorithm>
#include <ctime>
#include <fstream>
#include <iostream>

#include "platform/nrvui/scripted_presenter.h"
#include "platform/qpbasic/ledger.h"
#include "tests/support/built_module.h"
#include "tests/support/campaign.h"

namespace {

constexpr size_t kBatches = 20;

/// What the process holds after a batch of work, and what the batch cost.
struct Measure {
  std::clock_t ticks;
  size_t blocks = qpbasic::Ledger::Get().Counts().blocks;
  long descriptors = std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  long residentPages = 0;
};

Measure PlayBatch(BuiltModule& built, size_t dialogs, size_t reloads) {
  const std::clock_t start = std::clock();
  for (size_t i = 0; i < dialogs; ++i) {
    MosaicParameters record = SampleRecord();
    MosaicDialogState state{};
    EXPECT_EQ(built.RunDialog(record, state), ResultCode::kSuccess);
  }
  for (size_t i = 0; i < reloads; ++i) {
    EXPECT_EQ(built.module.Unload(), ResultCode::kSuccess);
    EXPECT_EQ(built.module.Reload(), ResultCode::kSuccess);
  }
  Measure measure{std::clock() - start};
  std::ifstream("/proc/self/statm") >> measure.residentPages >> measure.residentPages;
  return measure;
}

TEST(LongRun, KeepsItsMemoryAndSpeed) {
  nrvui::gestures::ScriptedPresenter person(nrvui::gestures::GestureScript::Parse(
      "enter HorizontalCountTxt 12\nclick MosaicUseRatioButton\nkey Return", "long run"));
  const nrvui::ui::InstalledPresenter installed(person);
  BuiltModule built;
  const size_t dialogs = campaign::Count(2000 / campaign::Step(1), 100000) / kBatches;
  const size_t reloads = campaign::Count(60, 1000) / kBatches;
  std::vector<Measure> batches;
  for (size_t i = 0; i < kBatches; ++i) batches.push_back(PlayBatch(built, dialogs, reloads));

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
  std::cout << last.residentPages * 4 << " kB resident, " << last.ticks * 1000 / CLOCKS_PER_SEC
            << " ms for " << dialogs << " dialogs and " << reloads << " reloads\n";
}

}  // namespace
