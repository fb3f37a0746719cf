#include "platform/qpbasic/ledger.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <map>
#include <new>
#include <optional>
#include <set>
#include <sstream>
#include <unordered_map>
#include <utility>

namespace qpbasic {

struct Block {
  void* address;
  size_t size;
  const char* debugName;
  uint64_t serial;
};

/// Takes memory from malloc: tests count the calls of the global operator new, and the ledger's own
/// allocations, whose number depends on the C++ library, must not change the count.
template <typename T>
struct MallocAllocator {
  using value_type = T;

  MallocAllocator() = default;
  template <typename Other>
  explicit(false) MallocAllocator(const MallocAllocator<Other>&) {}

  T* allocate(size_t count) {
    // T is also a pointer, for the table of buckets. NOLINTNEXTLINE(bugprone-sizeof-expression)
    if (void* const memory = std::malloc(count * sizeof(T))) return static_cast<T*>(memory);
    throw std::bad_alloc();
  }
  void deallocate(T* memory, size_t) { std::free(memory); }

  bool operator==(const MallocAllocator&) const = default;
};

using Blocks = std::unordered_map<void*, Block, std::hash<void*>, std::equal_to<>,
                                  MallocAllocator<std::pair<void* const, Block>>>;

namespace {

constexpr size_t kFaultTexts = 100;
constexpr size_t kRememberedFrees = 1024;

std::string Describe(const Block& block) {
  std::ostringstream text;
  text << "block " << block.serial << " of " << block.size << " bytes at " << block.address;
  if (block.debugName) text << " (" << block.debugName << ")";
  return text.str();
}

}  // namespace

struct Ledger::Book {
  Blocks standing;
  LedgerCounts counts;
  std::optional<Refusal> refusal;
  std::set<std::string, std::less<>> debugNames;
  std::array<Block, kRememberedFrees> lastFreed;
  size_t freed = 0;
  std::vector<std::string> faults;

  bool IsRefused(ResultCode* code);
  const char* Keep(const char* debugName);
  void NoteFault(void* address);
};

bool Ledger::Book::IsRefused(ResultCode* code) {
  if (!refusal) return false;
  if (refusal->countdown > 1) {
    --refusal->countdown;
    return false;
  }
  *code = refusal->code;
  if (refusal->once) refusal.reset();
  ++counts.refusals;
  return true;
}

const char* Ledger::Book::Keep(const char* debugName) {
  if (!debugName) return nullptr;
  const auto known = debugNames.find(std::string_view(debugName));
  if (known != debugNames.end()) return known->c_str();
  return debugNames.emplace(debugName).first->c_str();
}

void Ledger::Book::NoteFault(void* address) {
  ++counts.faults;
  if (faults.size() == kFaultTexts) return;
  // Addresses come back, so the latest release of this one is the block in question.
  for (size_t back = 1; back <= std::min(freed, kRememberedFrees); ++back) {
    const Block& earlier = lastFreed[(freed - back) % kRememberedFrees];
    if (earlier.address != address) continue;
    faults.push_back("freed twice: " + Describe(earlier));
    return;
  }
  std::ostringstream text;
  text << "freed but foreign: " << address;
  faults.push_back(text.str());
}

Ledger::Ledger() : book(new Book) {}

Ledger& Ledger::Get() {
  static Ledger* const ledger = new Ledger;
  return *ledger;
}

ResultCode Ledger::Allocate(size_t size, const char* debugName, void** block) noexcept {
  if (!block) return ResultCode::kParameter;
  *block = nullptr;
  ResultCode code = ResultCode::kSuccess;
  if (book->IsRefused(&code)) return code;
  // An address of its own for every block, also for the empty ones.
  void* memory = std::malloc(std::max<size_t>(size, 1));
  if (!memory) return ResultCode::kOutOfMemory;
  try {
    book->standing.try_emplace(
        memory, Block{memory, size, book->Keep(debugName), book->counts.totalBlocks + 1});
  } catch (...) {
    std::free(memory);
    return ResultCode::kOutOfMemory;
  }
  ++book->counts.totalBlocks;
  book->counts.totalBytes += size;
  book->counts.bytes += size;
  *block = memory;
  return ResultCode::kSuccess;
}

ResultCode Ledger::Free(void* block) noexcept {
  if (!block) return ResultCode::kSuccess;
  const auto standing = book->standing.find(block);
  if (standing == book->standing.end()) {
    try {
      book->NoteFault(block);
    } catch (...) {  // without memory for its text the fault is only counted
    }
    return kUnknownBlock;
  }
  book->lastFreed[book->freed++ % kRememberedFrees] = standing->second;
  book->counts.bytes -= standing->second.size;
  book->standing.erase(standing);
  std::free(block);
  return ResultCode::kSuccess;
}

LedgerCounts Ledger::Counts() const {
  LedgerCounts counts = book->counts;
  counts.blocks = book->standing.size();
  return counts;
}

uint64_t Ledger::Mark() const {
  return book->counts.totalBlocks;
}

std::vector<std::string> Ledger::Forgotten(uint64_t mark) const {
  std::map<uint64_t, Block> blocks;
  for (const auto& [address, block] : book->standing)
    if (block.serial > mark) blocks.emplace(block.serial, block);
  std::vector<std::string> lines;
  for (const auto& [serial, block] : blocks) lines.push_back(Describe(block));
  return lines;
}

std::vector<std::string> Ledger::Faults() const {
  return book->faults;
}

void Ledger::ForgetFaults() {
  book->faults.clear();
  book->counts.faults = 0;
}

void Ledger::Refuse(const Refusal& refusal) {
  book->refusal = refusal;
}

void Ledger::RefuseNothing() {
  book->refusal.reset();
}

}  // namespace qpbasic
