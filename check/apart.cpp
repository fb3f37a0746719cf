#include "check/apart.h"

#include <poll.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <system_error>

#include "check/check.h"
#include "check/findings.h"

namespace check {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr std::chrono::seconds kTimeLimit{30};
constexpr std::chrono::seconds kLongTimeLimit{7200};

[[noreturn]] void ThrowSystemError() {
  throw std::system_error(errno, std::generic_category(), "no process can be started");
}

[[noreturn]] void PlayAndExit(const std::function<void()>& run, int output) {
  dup2(output, STDOUT_FILENO);
  dup2(output, STDERR_FILENO);
  const rlimit none{};
  setrlimit(RLIMIT_CORE, &none);
  // What is written before a crash must arrive.
  std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
  try {
    run();
  } catch (const std::exception& error) {
    Fail(error.what());
  } catch (...) {
    Fail("an exception of an unknown type has come out");
  }
  CountOtherFindings();
  std::exit(HasFailed() ? 1 : 0);
}

/// Reads all that comes; false when the time is over before the end.
bool ReadUntil(Clock::time_point end, int input, std::string& text) {
  char buffer[4096];
  while (true) {
    const auto left = std::chrono::ceil<milliseconds>(end - Clock::now()).count();
    pollfd waiting{input, POLLIN, 0};
    if (left <= 0 || poll(&waiting, 1, static_cast<int>(left)) == 0) return false;
    const ssize_t count = read(input, buffer, sizeof buffer);
    if (count == 0) return true;
    if (count > 0) text.append(buffer, static_cast<size_t>(count));
  }
}

}  // namespace

Ending RunApart(const std::function<void()>& run) {
  int ends[2];
  if (pipe(ends) != 0) ThrowSystemError();
  std::fflush(nullptr);
  ForgetTried();
  const pid_t process = fork();
  if (process < 0) ThrowSystemError();
  if (process == 0) PlayAndExit(run, ends[1]);
  close(ends[1]);

  Ending ending;
  const auto usual = settings.isLong ? kLongTimeLimit : kTimeLimit;
  const auto limit = settings.limit.count() > 0 ? settings.limit : usual;
  ending.hung = !ReadUntil(Clock::now() + limit, ends[0], ending.output);
  close(ends[0]);
  if (ending.hung) kill(process, SIGKILL);
  int status = 0;
  while (waitpid(process, &status, 0) < 0 && errno == EINTR) continue;
  ending.isGood = WIFEXITED(status) && WEXITSTATUS(status) == 0;
  if (ending.hung) {
    ending.how = "did not end in time";
  } else if (WIFSIGNALED(status)) {
    ending.how = "ended by signal " + std::to_string(WTERMSIG(status)) + " (" +
                 strsignal(WTERMSIG(status)) + ")";
  } else if (WEXITSTATUS(status) > 1) {
    ending.how = "ended with status " + std::to_string(WEXITSTATUS(status));
  }
  if (!ending.how.empty() && !Tried().empty()) ending.how += " at: " + std::string(Tried());
  return ending;
}

}  // namespace check
