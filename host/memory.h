#pragma once

#include <cstddef>

/// A block of the host's memory, `size` bytes; null when the host refuses or gives none.
[[nodiscard]] void* TakeHostBlock(size_t size) noexcept;

/// Gives a block back; null is allowed and does nothing.
void ReturnHostBlock(void* block) noexcept;
