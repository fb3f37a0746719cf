#pragma once

#include <cstddef>

/// The memory of everything but the module, whose own comes from the host's blocks: toolkit, host
/// and C++ library take it through the operator that this file's other half replaces.
namespace toolkit_memory {

/// While armed, the allocation after `countdown` - 1 others throws std::bad_alloc.
void Refuse(size_t countdown);
void Arm(bool arm);
/// Ends a refusal, and says whether it happened.
bool RefuseNothing();

}  // namespace toolkit_memory
