#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <system_error>

namespace check {

/// A page of memory with an inaccessible page behind it: access beyond its end raises SIGSEGV.
/// checked_module.h passes records to the module at the end of such pages.
class GuardedPage {
 public:
  /// Throws std::system_error.
  GuardedPage() {
    void* const pages =
        mmap(nullptr, 2 * size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (pages == MAP_FAILED) throw std::system_error(errno, std::generic_category(), "no memory");
    start = static_cast<char*>(pages);
    mprotect(start + size, size, PROT_NONE);
  }
  ~GuardedPage() { munmap(start, 2 * size); }
  GuardedPage(const GuardedPage&) = delete;
  GuardedPage& operator=(const GuardedPage&) = delete;

  /// The last bytes of the page.
  void* Last(size_t bytes) { return start + size - bytes; }
  /// Copies the value to the end of the page.
  template <typename Value>
  Value* Put(const Value& value) {
    return new (Last(sizeof value)) Value(value);
  }

 private:
  const size_t size = static_cast<size_t>(sysconf(_SC_PAGESIZE));
  char* start;
};

}  // namespace check
