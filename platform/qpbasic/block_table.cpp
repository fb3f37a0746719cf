#include "platform/qpbasic/block_table.h"

#include <bit>

namespace qpbasic {

size_t BlockTable::HomeOf(const void* address) const {
  // Blocks are 16 bytes apart at least; the multiplication spreads what is left over all bits,
  // of which the upper ones are the well mixed.
  const uint64_t mixed = (reinterpret_cast<uintptr_t>(address) >> 4) * 0x9E3779B97F4A7C15u;
  return mixed >> (64 - std::countr_zero(slots.size()));
}

void BlockTable::Place(const BlockEntry& entry) {
  size_t slot = HomeOf(entry.address);
  while (slots[slot].address) slot = Next(slot);
  slots[slot] = entry;
}

void BlockTable::Grow() {
  std::vector<BlockEntry> bigger(slots.size() * 2);
  bigger.swap(slots);
  for (const BlockEntry& entry : bigger)
    if (entry.address) Place(entry);
}

void BlockTable::Insert(const BlockEntry& entry) {
  if (count * 2 >= slots.size()) Grow();
  Place(entry);
  ++count;
}

bool BlockTable::Remove(void* address, BlockEntry* removed) {
  size_t slot = HomeOf(address);
  while (slots[slot].address != address) {
    if (!slots[slot].address) return false;
    slot = Next(slot);
  }
  *removed = slots[slot];
  CloseGap(slot);
  --count;
  return true;
}

void BlockTable::CloseGap(size_t gap) {
  const size_t mask = slots.size() - 1;
  for (size_t slot = Next(gap); slots[slot].address; slot = Next(slot)) {
    // An entry may only move back as far as its home.
    const size_t distanceFromHome = (slot - HomeOf(slots[slot].address)) & mask;
    if (distanceFromHome < ((slot - gap) & mask)) continue;
    slots[gap] = slots[slot];
    gap = slot;
  }
  slots[gap] = {};
}

}  // namespace qpbasic
