#pragma once

#include <cstddef>

namespace bench {

/// Bytes that the process holds from the C library's allocator.
size_t HeldBytes();

/// Forgets the process's former peak and answers its resident memory in bytes.
size_t ResetPeak();
/// The process's peak of resident memory in bytes since the reset.
size_t Peak();

/// Runs the work and answers by how many bytes the process's resident memory grew at its peak.
template <class Work>
double PeakGrowth(const Work& work) {
  const double before = ResetPeak();
  work();
  return Peak() - before;
}

}  // namespace bench
