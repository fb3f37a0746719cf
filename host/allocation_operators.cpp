// The allocations of the module's own code come from the host's blocks. This file is linked into
// the module only: two images with different operators must not release each other's memory.

#include <new>

#include "host/memory.h"

void* operator new(size_t size) {
  if (void* block = TakeHostBlock(size)) return block;
  throw std::bad_alloc();
}

void* operator new[](size_t size) {
  return operator new(size);
}
void* operator new(size_t size, const std::nothrow_t&) noexcept {
  return TakeHostBlock(size);
}
void* operator new[](size_t size, const std::nothrow_t&) noexcept {
  return TakeHostBlock(size);
}

void operator delete(void* block) noexcept {
  ReturnHostBlock(block);
}
void operator delete[](void* block) noexcept {
  ReturnHostBlock(block);
}
void operator delete(void* block, size_t) noexcept {
  ReturnHostBlock(block);
}
void operator delete[](void* block, size_t) noexcept {
  ReturnHostBlock(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept {
  ReturnHostBlock(block);
}
void operator delete[](void* block, const std::nothrow_t&) noexcept {
  ReturnHostBlock(block);
}
