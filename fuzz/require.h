#pragma once

#include <cstdlib>

/// Ends the process, which is how a fuzzer learns of a fault, unless the condition holds.
inline void Require(bool condition) {
  if (!condition) std::abort();
}
