#include "bench/built_module.h"
#include "bench/figures.h"
#include "bench/process_memory.h"
#include "platform/qpbasic/ledger.h"

namespace {

/// Measures one dialog from its creation to its destruction.
void RunWholeDialog(benchmark::State& state) {
  constexpr int kWarmUp = 10;
  bench::BuiltModule module;
  bench::ImpatientPerson person;
  const qpbasic::Ledger& ledger = qpbasic::Ledger::Get();
  for (int i = 0; i < kWarmUp; ++i) module.RunDialog(person);
  const qpbasic::LedgerCounts before = ledger.Counts();
  const size_t heldBefore = bench::HeldBytes();
  for (auto _ : state) module.RunDialog(person);
  const size_t heldAfter = bench::HeldBytes();
  const qpbasic::LedgerCounts after = ledger.Counts();
  const auto runs = double(state.iterations());
  state.counters["blocks"] = double(after.totalBlocks - before.totalBlocks) / runs;
  state.counters["bytes"] = double(after.totalBytes - before.totalBytes) / runs;
  state.counters["growth"] = double(after.bytes - before.bytes);
  // The allocator's caches count as allocated, so a growth of a few hundred bytes in total is no
  // leak.
  state.counters["process growth"] = (double(heldAfter) - double(heldBefore)) / runs;
}

BENCHMARK(RunWholeDialog)->Name("Memory/dialog");

using enum bench::Unit;
constexpr bench::Line kLines[] = {
    {.what = "one dialog run, from the call to its end", .figure = "Memory/dialog"},
    {.what = "blocks that the module takes for it",
     .figure = "Memory/dialog:blocks",
     .unit = kCount},
    {.what = "bytes in them", .figure = "Memory/dialog:bytes", .unit = kBytes},
    {.what = "growth of the blocks over all runs",
     .figure = "Memory/dialog:growth",
     .unit = kBytes,
     .limit = 0},
    {.what = "growth of all memory of the process, per run",
     .figure = "Memory/dialog:process growth",
     .unit = kBytes,
     .limit = 1},
};
const bench::Table kTable(5, kLines);

}  // namespace
