#pragma once

#include <cstddef>

/// The memory of everything but the module, whose own comes from the host's blocks: toolkit, host
/// and C++ library take it through the operator that this file's other half replaces.
namespace toolkit_memory {

inline bool isArmed = false;
/// While armed, the n-th allocation from now throws std::bad_alloc; 0: none does.
inline size_t untilRefusal = 0;

}  // namespace toolkit_memory
