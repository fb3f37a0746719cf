#include "studio/interruption.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>

namespace {

volatile std::sig_atomic_t requested = 0;
int waker[2] = {-1, -1};

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

void Note(int) {
  requested = 1;
  // The pipe is full only when the reader has been woken already.
  [[maybe_unused]] const auto written = write(waker[1], "", 1);
}

}  // namespace

Interruption::Interruption() {
  requested = 0;
  if (pipe2(waker, O_CLOEXEC | O_NONBLOCK) != 0) waker[0] = waker[1] = -1;
  for (int number : kSignals) std::signal(number, Note);
}

Interruption::~Interruption() {
  for (int number : kSignals) std::signal(number, SIG_DFL);
  for (int& end : waker) close(end), end = -1;
}

bool Interruption::IsRequested() const {
  return requested != 0;
}

int Interruption::Descriptor() const {
  return waker[0];
}
