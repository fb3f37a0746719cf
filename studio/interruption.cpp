#include "studio/interruption.h"

#include <csignal>

namespace {

volatile std::sig_atomic_t requested = 0;

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

}  // namespace

Interruption::Interruption() {
  requested = 0;
  for (int number : kSignals) std::signal(number, [](int) { requested = 1; });
}

Interruption::~Interruption() {
  for (int number : kSignals) std::signal(number, SIG_DFL);
}

bool Interruption::IsRequested() const {
  return requested != 0;
}
