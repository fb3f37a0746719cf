// The module's code allocates all memory from the host's blocks. Only the module links this file:
// an image must not release memory that an image with other operators has allocated.

#include <new>

#include "host/memory.h"

void* operator new(size_t size) {
  if (void* block = AllocateHostBlock(size)) return block;
  throw std::bad_alloc();
}

void* operator new[](size_t size) {
  return operator new(size);
}
void* operator new(size_t size, const std::nothrow_t&) noexcept {
  return AllocateHostBlock(size);
}
void* operator new[](size_t size, const std::nothrow_t&) noexcept {
  return AllocateHostBlock(size);
}

void operator delete(void* block) noexcept {
  FreeHostBlock(block);
}
void operator delete[](void* block) noexcept {
  FreeHostBlock(block);
}
void operator delete(void* block, size_t) noexcept {
  FreeHostBlock(block);
}
void operator delete[](void* block, size_t) noexcept {
  FreeHostBlock(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept {
  FreeHostBlock(block);
}
void operator delete[](void* block, const std::nothrow_t&) noexcept {
  FreeHostBlock(block);
}
