#include "testkit/toolkit_memory.h"

#include <cstdlib>
#include <new>

void* operator new(size_t size) {
  const bool isRefused = toolkit_memory::isArmed && toolkit_memory::untilRefusal > 0 &&
                         --toolkit_memory::untilRefusal == 0;
  if (void* const memory = isRefused ? nullptr : std::malloc(size > 0 ? size : 1)) return memory;
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, size_t) noexcept {
  std::free(memory);
}
