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
  size_t blocks = 0;       // allocated now
  size_t bytes = 0;        // in those blocks, as requested
  size_t totalBlocks = 0;  // ever allocated
  size_t totalBytes = 0;
  size_t faults = 0;    // invalid frees, and invalid writes found by WatchContents
  size_t refusals = 0;  // allocations that failed because of a Refusal
};

/// Makes allocations fail, to test how callers handle that.
struct Refusal {
  size_t countdown = 1;                        // the first allocation to fail; 1 is the next one
  bool once = true;                            // false: all later allocations fail too
  ResultCode code = ResultCode::kOutOfMemory;  // kSuccess: reports success without a block
};

/// Allocates the blocks of QPBasicAllocateBlock and "QP Blocks Suite" and records each until its
/// release. Free looks up the address first, so freeing a foreign or already freed block is
/// harmless: it is counted and described as a fault. No data is stored next to a block, so memory
/// checkers see the bounds that the caller requested. Main thread only.
class __attribute__((visibility("default"))) Ledger {
 public:
  /// The only ledger. It is never destroyed, since blocks may be freed until the process ends.
  static Ledger& Get();

  Ledger(const Ledger&) = delete;
  Ledger& operator=(const Ledger&) = delete;

  /// `debugName` may be null and is copied.
  ResultCode Allocate(size_t size, const char* debugName, void** block) noexcept;
  /// Null is allowed and does nothing.
  ResultCode Free(void* block) noexcept;

  LedgerCounts Counts() const;

  /// Identifies the present moment for Forgotten.
  uint64_t Mark() const;
  /// A line for each block that was allocated after `mark` and not yet freed, the oldest first.
  std::vector<std::string> Forgotten(uint64_t mark = 0) const;

  /// A line for each fault since the start or the last ForgetFaults, at most 100. Counts() has the
  /// number of all.
  std::vector<std::string> Faults() const;
  void ForgetFaults();

  /// From now on, fills blocks with 0xA5 on allocation and with 0xDD on release, and delays their
  /// return to the system. A write beyond a block's end or after its release becomes a fault, found
  /// at the release or by Faults.
  void WatchContents();

  /// Replaces the current refusal, if any.
  void Refuse(const Refusal& refusal);
  void RefuseNothing();

 private:
  struct State;

  Ledger();
  ~Ledger() = delete;

  State* state;
};

}  // namespace qpbasic
