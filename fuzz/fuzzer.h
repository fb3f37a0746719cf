#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>

/// Runs one input; each fuzzer defines it. Called by clang's fuzzing engine, or by replay.cpp with
/// the inputs of the corpus. Returns 0.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

/// Aborts the process, which the engine reports as a fault, if the condition is false.
inline void Require(bool condition) {
  if (!condition) std::abort();
}
