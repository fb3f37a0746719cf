#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <system_error>

namespace check {

/// A page of memory with nothing mapped behind it: an access beyond its end ends the process.
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
  /// A copy of the value at the page's end.
  template <typename Value>
  Value* Put(const Value& value) {
    return new (Last(sizeof value)) Value(value);
  }

 private:
  const size_t size = static_cast<size_t>(sysconf(_SC_PAGESIZE));
  char* start;
};

}  // namespace check
