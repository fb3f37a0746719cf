#pragma once

#include <cstddef>

namespace bench {

/// Bytes allocated from the C library's allocator.
size_t HeldBytes();

/// Resets the process's peak of resident memory. Returns its resident memory in bytes.
size_t ResetPeak();
/// The process's peak of resident memory in bytes since the reset.
size_t Peak();

/// Runs `work`. Returns by how many bytes the process's resident memory grew at its peak.
template <class Work>
double PeakGrowth(const Work& work) {
  const double before = ResetPeak();
  work();
  return Peak() - before;
}

}  // namespace bench
