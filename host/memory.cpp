#include "host/memory.h"

#include "platform/qpbasic/qpbasic.h"

void* AllocateHostBlock(size_t size) noexcept {
  void* block = nullptr;
  return Failed(QPBasicAllocateBlock(size, &block)) ? nullptr : block;
}

void FreeHostBlock(void* block) noexcept {
  if (block) (void)QPBasicFreeBlock(block);
}
