#include "studio/base/interruption.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <iterator>

namespace {

std::atomic<bool> requested = false;  // set by a signal handler, read on any thread
std::atomic<int> exitStatus = 0;      // read by a signal handler
static_assert(std::atomic<bool>::is_always_lock_free && std::atomic<int>::is_always_lock_free);
int waker[2] = {-1, -1};

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};
struct sigaction former[std::size(kSignals)];

void SetRequested(int) {
  const int error = errno;
  requested = true;
  // If the pipe is full, its reader has been woken already.
  [[maybe_unused]] const auto written = write(waker[1], "", 1);
  errno = error;
}

void Install(void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  for (const int number : kSignals) {
    struct sigaction present {};
    sigaction(number, nullptr, &present);
    if (present.sa_handler != SIG_IGN) sigaction(number, &action, nullptr);
  }
}

}  // namespace

void ExitOnSignals(int status) {
  exitStatus = status;
  Install([](int) { std::_Exit(exitStatus); });
}

Interruption::Interruption() {
  requested = false;
  if (pipe2(waker, O_CLOEXEC | O_NONBLOCK) != 0) waker[0] = waker[1] = -1;
  for (size_t i = 0; i < std::size(kSignals); ++i) sigaction(kSignals[i], nullptr, &former[i]);
  Install(SetRequested);
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
