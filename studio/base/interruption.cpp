#include "studio/base/interruption.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <iterator>

namespace {

volatile std::sig_atomic_t requested = 0;
int waker[2] = {-1, -1};

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};
struct sigaction former[std::size(kSignals)];

void Note(int) {
  const int error = errno;
  requested = 1;
  // The pipe is full only when the reader has been woken already.
  [[maybe_unused]] const auto written = write(waker[1], "", 1);
  errno = error;
}

}  // namespace

Interruption::Interruption() {
  requested = 0;
  if (pipe2(waker, O_CLOEXEC | O_NONBLOCK) != 0) waker[0] = waker[1] = -1;
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
  return requested != 0;
}

int Interruption::Descriptor() const {
  return waker[0];
}
