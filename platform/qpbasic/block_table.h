#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace qpbasic {

struct BlockEntry {
  void* address = nullptr;
  size_t size = 0;
  const char* debugName = nullptr;
  uint64_t serial = 0;
};

/// The standing blocks by address, in one flat piece of memory: taking and freeing blocks is on
/// the path of everything that the module does.
class BlockTable {
 public:
  BlockTable() : slots(kFirstSlots) {}

  /// The address must not be in the table. Throws std::bad_alloc and changes nothing then.
  void Insert(const BlockEntry& entry);
  /// False when the address is not in the table; otherwise what stood there goes to `removed`.
  bool Remove(void* address, BlockEntry* removed);

  size_t Size() const { return count; }

  template <typename Visit>
  void ForEach(Visit visit) const {
    for (const BlockEntry& entry : slots)
      if (entry.address) visit(entry);
  }

 private:
  static constexpr size_t kFirstSlots = 1024;  // a power of two, as all sizes after it

  size_t HomeOf(const void* address) const;
  size_t Next(size_t slot) const { return (slot + 1) & (slots.size() - 1); }
  void Place(const BlockEntry& entry);
  void CloseGap(size_t gap);
  void Grow();

  std::vector<BlockEntry> slots;
  size_t count = 0;
};

}  // namespace qpbasic
