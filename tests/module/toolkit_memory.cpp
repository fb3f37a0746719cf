#include "module/toolkit_memory.h"

#include <cstdlib>
#include <new>

namespace {

bool isArmed = false;
size_t untilRefusal = 0;  // 0: none is in force
bool wasRefused = false;

}  // namespace

void toolkit_memory::Refuse(size_t countdown) {
  untilRefusal = countdown;
  wasRefused = false;
}

void toolkit_memory::Arm(bool arm) {
  isArmed = arm;
}

bool toolkit_memory::RefuseNothing() {
  untilRefusal = 0;
  return wasRefused;
}

void* operator new(size_t size) {
  if (isArmed && untilRefusal > 0 && --untilRefusal == 0) {
    wasRefused = true;
    throw std::bad_alloc();
  }
  if (void* const memory = std::malloc(size > 0 ? size : 1)) return memory;
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, size_t) noexcept {
  std::free(memory);
}
