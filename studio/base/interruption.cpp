#include "studio/base/interruption.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <iterator>

namespace {

std::atomic<bool> requested = false;  // set in a signal handler, read on any thread
static_assert(std::atomic<bool>::is_always_lock_free);
int waker[2] = {-1, -1};

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};
struct sigaction former[std::size(kSignals)];

void Note(int) {
  const int error = errno;
  requested = true;
  // The pipe is full only when the reader has been woken already.
  [[maybe_unused]] const auto written = write(waker[1], "", 1);
  errno = error;
}

/// A pipe that no other program inherits and nobody waits for; false when there is none to be had.
bool MakePipe(int (&ends)[2]) {
#ifdef __linux__
  return pipe2(ends, O_CLOEXEC | O_NONBLOCK) == 0;
#else
  // Untested beyond its compilation, as the project has no such machine.
  if (pipe(ends) != 0) return false;
  for (const int end : ends) {
    fcntl(end, F_SETFD, FD_CLOEXEC);
    fcntl(end, F_SETFL, O_NONBLOCK);
  }
  return true;
#endif
}

}  // namespace

Interruption::Interruption() {
  requested = false;
  if (!MakePipe(waker)) waker[0] = waker[1] = -1;
  struct sigaction noting {};
  noting.sa_handler = Note;
  noting.sa_flags = SA_RESTART;
  for (size_t i = 0; i < std::size(kSignals); ++i) {
    sigaction(kSignals[i], nullptr, &former[i]);
    // A signal that was ignored at the start, as nohup does with SIGHUP, stays ignored.
    if (former[i].sa_handler != SIG_IGN) sigaction(kSignals[i], &noting, nullptr);
  }
}

Interruption::~Interruption() {
  for (size_t i = 0; i < std::size(kSignals); ++i) sigaction(kSignals[i], &former[i], nullptr);
  for (int& end : waker) close(end), end = -1;
}

bool Interruption::IsRequested() const {
  return requested;
}

int Interruption::Descriptor() const {
  return waker[0];
}
