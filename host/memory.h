#pragma once

#include <cstddef>

/// The host's block allocation, from which the module's allocation operators and Plugin take all
/// memory. Blocks stay allocated while the module is unloaded.

/// Allocates `size` bytes. Returns null if the host reports a failure or provides no block.
[[nodiscard]] void* AllocateHostBlock(size_t size) noexcept;

/// Frees a block. Null is allowed and does nothing.
void FreeHostBlock(void* block) noexcept;
