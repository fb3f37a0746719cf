#include "platform/qpbasic/ledger.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>
#include <set>
#include <sstream>

#include "platform/qpbasic/block_table.h"

namespace qpbasic {
namespace {

constexpr size_t kFaultTexts = 100;
constexpr size_t kRememberedFrees = 1024;

std::string Describe(const BlockEntry& block) {
  std::ostringstream text;
  text << "block " << block.serial << " of " << block.size << " bytes at " << block.address;
  if (block.debugName) text << " (" << block.debugName << ")";
  return text.str();
}

}  // namespace

struct Ledger::Book {
  BlockTable standing;
  LedgerCounts counts;
  std::optional<Refusal> refusal;
  std::set<std::string, std::less<>> debugNames;
  std::array<BlockEntry, kRememberedFrees> lastFreed;
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
    const BlockEntry& earlier = lastFreed[(freed - back) % kRememberedFrees];
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
    book->standing.Insert({memory, size, book->Keep(debugName), book->counts.totalBlocks + 1});
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
  BlockEntry& entry = book->lastFreed[book->freed % kRememberedFrees];
  if (!book->standing.Remove(block, &entry)) {
    try {
      book->NoteFault(block);
    } catch (...) {  // the count tells of a fault whose text has no room
    }
    return kUnknownBlock;
  }
  ++book->freed;
  book->counts.bytes -= entry.size;
  std::free(block);
  return ResultCode::kSuccess;
}

LedgerCounts Ledger::Counts() const {
  LedgerCounts counts = book->counts;
  counts.blocks = book->standing.Size();
  return counts;
}

uint64_t Ledger::Mark() const {
  return book->counts.totalBlocks;
}

std::vector<std::string> Ledger::Forgotten(uint64_t mark) const {
  std::vector<BlockEntry> blocks;
  book->standing.ForEach([&](const BlockEntry& entry) {
    if (entry.serial > mark) blocks.push_back(entry);
  });
  std::sort(blocks.begin(), blocks.end(),
            [](const BlockEntry& a, const BlockEntry& b) { return a.serial < b.serial; });
  std::vector<std::string> lines;
  for (const BlockEntry& block : blocks) lines.push_back(Describe(block));
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
