#include "platform/qpbasic/ledger.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <map>
#include <new>
#include <optional>
#include <set>
#include <sstream>
#include <unordered_map>

namespace qpbasic {

struct Block {
  void* address;
  size_t size;
  const char* debugName;  // null for none
  uint64_t serial;        // numbers the blocks in the order of their allocation
  size_t guardSize;       // bytes after the block that detect writes; 0 without WatchContents
};

namespace {

constexpr size_t kMaxFaultTexts = 100;
constexpr size_t kRecentFrees = 1024;

constexpr size_t kGuardSize = 16;
constexpr unsigned char kAllocatedFill = 0xA5;
constexpr unsigned char kFreedFill = 0xDD;

bool IsFilledWith(const void* memory, size_t size, unsigned char byte) {
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
  std::unordered_map<void*, Block> allocated;
  LedgerCounts counts;
  std::optional<Refusal> refusal;
  std::set<std::string, std::less<>> debugNames;
  std::array<Block, kRecentFrees> recentlyFreed{};  // a ring buffer
  size_t freed = 0;                                 // the number of blocks freed so far
  std::vector<std::string> faults;
  bool watches = false;

  bool IsRefused(ResultCode* code);
  /// A copy of the name that lives as long as the ledger.
  const char* Intern(const char* debugName);
  void AddFault(const std::string& fault);
  void AddUnknownFree(void* address);
  /// Adds a block to the ring buffer of freed blocks and returns the replaced one to the system.
  void AddFreed(const Block& block);
  void CheckFreed(const Block& block);
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

const char* Ledger::State::Intern(const char* debugName) {
  if (!debugName) return nullptr;
  const auto known = debugNames.find(std::string_view(debugName));
  if (known != debugNames.end()) return known->c_str();
  return debugNames.emplace(debugName).first->c_str();
}

void Ledger::State::AddFault(const std::string& fault) {
  ++counts.faults;
  if (faults.size() < kMaxFaultTexts) faults.push_back(fault);
}

void Ledger::State::AddUnknownFree(void* address) {
  // The system reuses addresses: of the blocks with this one, the last was freed twice.
  for (size_t back = 1; back <= std::min(freed, kRecentFrees); ++back) {
    const Block& earlier = recentlyFreed[(freed - back) % kRecentFrees];
    if (earlier.address == address) return AddFault("freed twice: " + Describe(earlier));
  }
  std::ostringstream text;
  text << "freed but foreign: " << address;
  AddFault(text.str());
}

void Ledger::State::AddFreed(const Block& block) {
  Block& entry = recentlyFreed[freed++ % kRecentFrees];
  if (entry.guardSize > 0) {
    CheckFreed(entry);
    std::free(entry.address);
  }
  entry = block;
  if (block.guardSize == 0) return std::free(block.address);
  char* const bytes = static_cast<char*>(block.address);
  if (!IsFilledWith(bytes + block.size, block.guardSize, kAllocatedFill))
    AddFault("written beyond its end: " + Describe(block));
  std::memset(bytes, kFreedFill, block.size + block.guardSize);
}

void Ledger::State::CheckFreed(const Block& block) {
  if (block.guardSize == 0 || IsFilledWith(block.address, block.size + block.guardSize, kFreedFill))
    return;
  AddFault("written after its release: " + Describe(block));
  std::memset(block.address, kFreedFill, block.size + block.guardSize);
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
  // At least one byte, so that empty blocks have distinct addresses.
  const size_t guardSize = state->watches ? kGuardSize : 0;
  void* memory = std::malloc(std::max<size_t>(size + guardSize, 1));
  if (!memory) return ResultCode::kOutOfMemory;
  if (state->watches) std::memset(memory, kAllocatedFill, size + guardSize);
  try {
    state->allocated.try_emplace(memory, Block{memory, size, state->Intern(debugName),
                                               state->counts.totalBlocks + 1, guardSize});
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
      state->AddUnknownFree(block);
    } catch (...) {  // no memory for the text; the fault is counted
    }
    return kUnknownBlock;
  }
  const Block freed = entry->second;
  state->counts.bytes -= freed.size;
  state->allocated.erase(entry);
  try {
    state->AddFreed(freed);
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

std::vector<std::string> Ledger::Unfreed(uint64_t mark) const {
  std::map<uint64_t, Block> blocks;
  for (const auto& [address, block] : state->allocated)
    if (block.serial > mark) blocks.emplace(block.serial, block);
  std::vector<std::string> lines;
  for (const auto& [serial, block] : blocks) lines.push_back(Describe(block));
  return lines;
}

std::vector<std::string> Ledger::Faults() const {
  for (const Block& freed : state->recentlyFreed) state->CheckFreed(freed);
  return state->faults;
}

void Ledger::ClearFaults() {
  state->faults.clear();
  state->counts.faults = 0;
}

void Ledger::WatchContents() {
  state->watches = true;
}

void Ledger::Refuse(const Refusal& refusal) {
  state->refusal = refusal;
}

void Ledger::ClearRefusal() {
  state->refusal.reset();
}

}  // namespace qpbasic
