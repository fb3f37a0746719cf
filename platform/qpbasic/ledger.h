#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/suites/result_code.h"

namespace qpbasic {

/// The result of Free for an address that is not an allocated block.
inline constexpr ResultCode kUnknownBlock{FourCharCode("BLK?")};

struct LedgerCounts {
  size_t blocks = 0;       // blocks that are not freed
  size_t bytes = 0;        // the requested sizes of these blocks
  size_t totalBlocks = 0;  // all blocks since the start
  size_t totalBytes = 0;
  size_t faults = 0;    // invalid frees, and invalid writes found by WatchContents
  size_t refusals = 0;  // allocations that failed because of a Refusal
};

/// An injected fault: makes allocations fail.
struct Refusal {
  size_t countdown = 1;                        // the first allocation to fail; 1: the next one
  bool once = true;                            // false: all later allocations fail too
  ResultCode code = ResultCode::kOutOfMemory;  // kSuccess: reports success without a block
};

/// Allocates the blocks of QPBasicAllocateBlock and "QP Blocks Suite" and records each until its
/// release. Free looks up the address first: freeing a foreign or already freed block has no effect
/// and is recorded as a fault. No data is stored next to a block, so memory checkers see the bounds
/// that the caller requested. Main thread only.
class __attribute__((visibility("default"))) Ledger {
 public:
  /// The singleton. It is never destroyed, because blocks may be freed until the process ends.
  static Ledger& Get();

  Ledger(const Ledger&) = delete;
  Ledger& operator=(const Ledger&) = delete;

  /// Writes a block of `size` bytes to `*block`, or null after a failure. `debugName` is copied and
  /// may be null.
  ResultCode Allocate(size_t size, const char* debugName, void** block) noexcept;
  /// Frees a block. Null has no effect.
  ResultCode Free(void* block) noexcept;

  LedgerCounts Counts() const;

  /// Identifies the present moment, for Unfreed.
  uint64_t Mark() const;
  /// A line for each block that was allocated after `mark` and not yet freed, the oldest first.
  std::vector<std::string> Unfreed(uint64_t mark = 0) const;

  /// A line for each fault since the last ClearFaults, at most 100. Counts() has the full number.
  std::vector<std::string> Faults() const;
  void ClearFaults();

  /// From now on, fills blocks with 0xA5 on allocation and with 0xDD on release, and delays their
  /// return to the system. Release and Faults then also record writes beyond the end of a block and
  /// after its release as faults.
  void WatchContents();

  /// Replaces the current refusal, if any.
  void Refuse(const Refusal& refusal);
  void ClearRefusal();

 private:
  struct State;

  Ledger();
  ~Ledger() = delete;

  State* state;
};

}  // namespace qpbasic
