#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/suites/result_code.h"

/// The host's blocks of memory, from its basic framework. Plug-ins bind to both by name.
extern "C" {

/// Takes `size` bytes (0 is allowed) and writes the block's address to `*block`, aligned for any
/// ordinary type. On failure a code other than 0 is answered and `*block` is null.
__attribute__((visibility("default"))) ResultCode QPBasicAllocateBlock(size_t size,
                                                                       void** block) noexcept;

/// Gives a block of QPBasicAllocateBlock back. Callers ignore the answer.
__attribute__((visibility("default"))) ResultCode QPBasicFreeBlock(void* block) noexcept;
}
