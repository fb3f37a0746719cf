#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/suites/result_code.h"

namespace qpbasic {

/// What Free answers for an address that is no block's.
inline constexpr ResultCode kUnknownBlock{FourCharCode("BLK?")};

struct LedgerCounts {
  size_t blocks = 0;       // standing now
  size_t bytes = 0;        // in them, as they were asked for
  size_t totalBlocks = 0;  // ever given out
  size_t totalBytes = 0;
  size_t faults = 0;    // frees of something that was no block, and what WatchContents finds
  size_t refusals = 0;  // allocations that a Refusal turned down
};

/// Turns allocations down, to show what the callers make of it.
struct Refusal {
  size_t countdown = 1;                        // 1 is the next allocation
  bool once = true;                            // otherwise all from there on
  ResultCode code = ResultCode::kOutOfMemory;  // kSuccess: said to be done, but no block comes
};

/// The book in which each block of the process stands from its allocation to its release. Free
/// looks an address up before it touches it, so a foreign or already freed block does no harm: it
/// is counted, described and left alone. Nothing is kept beside the block itself, so memory
/// checkers see the bounds that the caller sees. Main thread only.
class __attribute__((visibility("default"))) Ledger {
 public:
  /// The one ledger; it is never destroyed, since blocks may be freed until the process ends.
  static Ledger& Get();

  Ledger(const Ledger&) = delete;
  Ledger& operator=(const Ledger&) = delete;

  /// `debugName` may be null and is copied.
  ResultCode Allocate(size_t size, const char* debugName, void** block) noexcept;
  /// Null is allowed and does nothing.
  ResultCode Free(void* block) noexcept;

  LedgerCounts Counts() const;

  /// A point in time: blocks that are given out later are those since this mark.
  uint64_t Mark() const;
  /// A line for each block given out since `mark` that still stands, the oldest first.
  std::vector<std::string> Forgotten(uint64_t mark = 0) const;

  /// A line for each fault since the start or the last ForgetFaults; after a hundred of them they
  /// are only counted.
  std::vector<std::string> Faults() const;
  void ForgetFaults();

  /// For checks of a module: from now on blocks are filled with 0xA5 when they are given out and
  /// with 0xDD when they come back, and are kept for a while afterwards. A write beyond a block's
  /// end or after its release is a fault, found at its release or by Faults.
  void WatchContents();

  /// Replaces the refusal that is in force, if any.
  void Refuse(const Refusal& refusal);
  void RefuseNothing();

 private:
  struct Book;

  Ledger();
  ~Ledger() = delete;

  Book* book;
};

}  // namespace qpbasic
