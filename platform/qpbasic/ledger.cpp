#include "platform/qpbasic/ledger.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
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
  size_t tail = 0;  // additional bytes that detect writes beyond the end, 0 without WatchContents
};

/// Allocates with malloc. Tests count the calls of the global operator new, which must not include
/// the ledger's own allocations: their number depends on the C++ library.
template <typename T>
struct MallocAllocator {
  using value_type = T;

  MallocAllocator() = default;
  template <typename Other>
  explicit(false) MallocAllocator(const MallocAllocator<Other>&) {}

  T* allocate(size_t count) {
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

constexpr size_t kWatchedTail = 16;
constexpr unsigned char kFresh = 0xA5;
constexpr unsigned char kReleased = 0xDD;

bool Holds(const void* memory, size_t size, unsigned char byte) {
  const auto* const bytes = static_cast<const unsigned char*>(memory);
  return std::all_of(bytes, bytes + size, [byte](unsigned char each) { return each == byte; });
}

std::string Describe(const Block& block) {
  std::ostringstream text;
  text << "block " << block.serial << " of " << block.size << " bytes at " << block.address;
  if (block.debugName) text << " (" << block.debugName << ")";
  return text.str();
}

}  // namespace

struct Ledger::State {
  Blocks allocated;
  LedgerCounts counts;
  std::optional<Refusal> refusal;
  std::set<std::string, std::less<>> debugNames;
  std::array<Block, kRememberedFrees> lastFreed;
  size_t freed = 0;
  std::vector<std::string> faults;
  bool watches = false;

  bool IsRefused(ResultCode* code);
  const char* Keep(const char* debugName);
  void Note(const std::string& fault);
  void NoteUnknown(void* address);
  /// Adds a block to those freed last, in place of the one freed the longest time ago.
  void Remember(const Block& block);
  void CheckReleased(Block& block);
};

bool Ledger::State::IsRefused(ResultCode* code) {
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

const char* Ledger::State::Keep(const char* debugName) {
  if (!debugName) return nullptr;
  const auto known = debugNames.find(std::string_view(debugName));
  if (known != debugNames.end()) return known->c_str();
  return debugNames.emplace(debugName).first->c_str();
}

void Ledger::State::Note(const std::string& fault) {
  ++counts.faults;
  if (faults.size() < kFaultTexts) faults.push_back(fault);
}

void Ledger::State::NoteUnknown(void* address) {
  // Addresses are reused, so the last block that had this one was freed twice.
  for (size_t back = 1; back <= std::min(freed, kRememberedFrees); ++back) {
    const Block& earlier = lastFreed[(freed - back) % kRememberedFrees];
    if (earlier.address == address) return Note("freed twice: " + Describe(earlier));
  }
  std::ostringstream text;
  text << "freed but foreign: " << address;
  Note(text.str());
}

void Ledger::State::Remember(const Block& block) {
  Block& place = lastFreed[freed++ % kRememberedFrees];
  if (place.tail > 0) {
    CheckReleased(place);
    std::free(place.address);
  }
  place = block;
  if (block.tail == 0) return std::free(block.address);
  char* const bytes = static_cast<char*>(block.address);
  if (!Holds(bytes + block.size, block.tail, kFresh))
    Note("written beyond its end: " + Describe(block));
  std::memset(bytes, kReleased, block.size + block.tail);
}

void Ledger::State::CheckReleased(Block& block) {
  if (block.tail == 0 || Holds(block.address, block.size + block.tail, kReleased)) return;
  Note("written after its release: " + Describe(block));
  std::memset(block.address, kReleased, block.size + block.tail);
}

Ledger::Ledger() : state(new State) {}

Ledger& Ledger::Get() {
  static Ledger* const ledger = new Ledger;
  return *ledger;
}

ResultCode Ledger::Allocate(size_t size, const char* debugName, void** block) noexcept {
  if (!block) return ResultCode::kParameter;
  *block = nullptr;
  ResultCode code = ResultCode::kSuccess;
  if (state->IsRefused(&code)) return code;
  // At least one byte, so that an empty block has an address of its own.
  const size_t tail = state->watches ? kWatchedTail : 0;
  void* memory = std::malloc(std::max<size_t>(size + tail, 1));
  if (!memory) return ResultCode::kOutOfMemory;
  if (state->watches) std::memset(memory, kFresh, size + tail);
  try {
    state->allocated.try_emplace(
        memory, Block{memory, size, state->Keep(debugName), state->counts.totalBlocks + 1, tail});
  } catch (...) {
    std::free(memory);
    return ResultCode::kOutOfMemory;
  }
  ++state->counts.totalBlocks;
  state->counts.totalBytes += size;
  state->counts.bytes += size;
  *block = memory;
  return ResultCode::kSuccess;
}

ResultCode Ledger::Free(void* block) noexcept {
  if (!block) return ResultCode::kSuccess;
  const auto entry = state->allocated.find(block);
  if (entry == state->allocated.end()) {
    try {
      state->NoteUnknown(block);
    } catch (...) {  // no memory for the text; the fault is counted
    }
    return kUnknownBlock;
  }
  const Block freed = entry->second;
  state->counts.bytes -= freed.size;
  state->allocated.erase(entry);
  try {
    state->Remember(freed);
  } catch (...) {  // no memory for the text; the fault is counted
  }
  return ResultCode::kSuccess;
}

LedgerCounts Ledger::Counts() const {
  LedgerCounts counts = state->counts;
  counts.blocks = state->allocated.size();
  return counts;
}

uint64_t Ledger::Mark() const {
  return state->counts.totalBlocks;
}

std::vector<std::string> Ledger::Forgotten(uint64_t mark) const {
  std::map<uint64_t, Block> blocks;
  for (const auto& [address, block] : state->allocated)
    if (block.serial > mark) blocks.emplace(block.serial, block);
  std::vector<std::string> lines;
  for (const auto& [serial, block] : blocks) lines.push_back(Describe(block));
  return lines;
}

std::vector<std::string> Ledger::Faults() const {
  for (Block& released : state->lastFreed) state->CheckReleased(released);
  return state->faults;
}

void Ledger::ForgetFaults() {
  state->faults.clear();
  state->counts.faults = 0;
}

void Ledger::WatchContents() {
  state->watches = true;
}

void Ledger::Refuse(const Refusal& refusal) {
  state->refusal = refusal;
}

void Ledger::RefuseNothing() {
  state->refusal.reset();
}

}  // namespace qpbasic
