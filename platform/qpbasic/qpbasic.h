#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/suites/result_code.h"

/// The host's block allocation, part of its basic framework. The module links to both functions by
/// name and allocates all its memory through them, on the host's main thread. They must not throw.
extern "C" {

/// Allocates `size` bytes, 0 or more, and writes the block's address to `*block`, aligned for any
/// type without extended alignment. The caller owns the block until QPBasicFreeBlock, even while
/// its code is unloaded. Fails with a result other than 0, or with 0 and a null `*block`.
__attribute__((visibility("default"))) ResultCode QPBasicAllocateBlock(size_t size,
                                                                       void** block) noexcept;

/// Frees a block of QPBasicAllocateBlock. Null has no effect. The module ignores the result.
__attribute__((visibility("default"))) ResultCode QPBasicFreeBlock(void* block) noexcept;
}
