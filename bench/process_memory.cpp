#include "bench/process_memory.h"

#include <malloc.h>

#include <fstream>
#include <stdexcept>
#include <string>

namespace bench {

namespace {

/// A value of /proc/self/status, in bytes.
size_t Status(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    size_t kilobytes = 0;
    if (word == name && status >> kilobytes) return kilobytes << 10;
  }
  throw std::runtime_error("the system does not tell " + name);
}

}  // namespace

size_t HeldBytes() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

size_t ResetPeak() {
  malloc_trim(0);
  if (!(std::ofstream("/proc/self/clear_refs") << "5" << std::flush))
    throw std::runtime_error("the system does not forget the peak of memory");
  return Status("VmRSS:");
}

size_t Peak() {
  return Status("VmHWM:");
}

}  // namespace bench
