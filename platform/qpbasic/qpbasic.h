#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/suites/result_code.h"

/// The host's blocks of memory, from its basic framework. The module binds to both by name when it
/// is loaded, and takes the memory of its own code through them, on the host's main thread. A host
/// in C++ must not throw out of them.
extern "C" {

/// Takes `size` bytes (0 is allowed) and writes the block's address to `*block`, aligned for any
/// ordinary type; the block is the caller's until QPBasicFreeBlock, also while the caller's code is
/// unloaded. On failure a code other than 0 is answered and `*block` is null.
__attribute__((visibility("default"))) ResultCode QPBasicAllocateBlock(size_t size,
                                                                       void** block) noexcept;

/// Gives a block of QPBasicAllocateBlock back; null is allowed and does nothing. Callers ignore the
/// answer.
__attribute__((visibility("default"))) ResultCode QPBasicFreeBlock(void* block) noexcept;
}
