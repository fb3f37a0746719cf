#include "check/apart.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/random.h>
#include <sys/resource.h>
#include <sys/signalfd.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <fstream>
#include <system_error>
#include <utility>

#include "check/findings.h"

namespace check {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr size_t kOutputLimit = 64 << 10;
constexpr size_t kReportLimit = 64 << 20;
constexpr int kLeastReportDescriptor = 200;  // out of the way of files that a module opens

int signalDescriptor = -1;
int reportDescriptor = STDOUT_FILENO;

int OrThrow(int result) {
  if (result < 0)
    throw std::system_error(errno, std::generic_category(), "no process can be started");
  return result;
}

class Descriptor {
 public:
  explicit Descriptor(int newNumber = -1) : number(newNumber) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { Set(-1); }

  void Set(int newNumber) {
    if (number >= 0) close(number);
    number = newNumber;
  }
  int Number() const { return number; }

 private:
  int number;
};

/// A pipe, and what its reader has received.
struct Channel {
  explicit Channel(size_t mostBytes) : limit(mostBytes) {
    int ends[2];
    OrThrow(pipe2(ends, O_CLOEXEC));
    input.Set(ends[0]);
    output.Set(ends[1]);
    OrThrow(fcntl(ends[0], F_SETFL, O_NONBLOCK));
  }

  /// Reads what is there, up to the limit.
  void Read() {
    char buffer[4096];
    while (input.Number() >= 0 && !IsFull()) {
      const ssize_t count = read(input.Number(), buffer, sizeof buffer);
      if (count > 0) received.append(buffer, static_cast<size_t>(count));
      if (count == 0) input.Set(-1);
      if (count < 0 && errno != EINTR) return;
    }
  }
  bool IsFull() const { return received.size() >= limit; }

  const size_t limit;
  Descriptor input, output;
  std::string received;
};

/// 32 hexadecimal digits.
std::string RandomToken() {
  unsigned char bytes[16];
  OrThrow(static_cast<int>(getrandom(bytes, sizeof bytes, 0)));
  std::string token;
  char digits[3];
  for (const unsigned char byte : bytes) {
    std::snprintf(digits, sizeof digits, "%02x", byte);
    token += digits;
  }
  return token;
}

[[noreturn]] void PlayAndExit(const std::function<void()>& run, const std::string& token,
                              const Channel& output, const Channel& report) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  setpgid(0, 0);
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  signal(SIGPIPE, SIG_DFL);
  const rlimit noCore{};
  setrlimit(RLIMIT_CORE, &noCore);
  dup2(open("/dev/null", O_RDONLY | O_CLOEXEC), STDIN_FILENO);
  dup2(output.output.Number(), STDOUT_FILENO);
  dup2(output.output.Number(), STDERR_FILENO);
  reportDescriptor = fcntl(report.output.Number(), F_DUPFD_CLOEXEC, kLeastReportDescriptor);
  std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);  // what is written before a crash must arrive
  try {
    run();
  } catch (const std::exception& error) {
    Fail(error.what());
  } catch (...) {
    Fail("an exception of unknown type was thrown");
  }
  NoteOperation(nullptr);
  CountOtherFindings();
  Report(token + (HasFailed() ? " failed" : " passed"));
  std::exit(0);
}

/// The children that this process has now; the system hands it the orphans of those that end.
std::vector<pid_t> Children() {
  std::vector<pid_t> children;
  const std::string self = std::to_string(getpid());
  std::ifstream list("/proc/" + self + "/task/" + self + "/children");
  for (pid_t child; list >> child;) children.push_back(child);
  return children;
}

/// Ends the process, its process group and all its descendants. Answers how many of those it left.
size_t EndProcesses(pid_t process, int* status) {
  kill(-process, SIGKILL);
  while (waitpid(process, status, 0) < 0 && errno == EINTR) continue;
  size_t left = 0;
  for (auto orphans = Children(); !orphans.empty(); orphans = Children()) {
    for (const pid_t orphan : orphans) {
      kill(orphan, SIGKILL);
      while (waitpid(orphan, nullptr, 0) < 0 && errno == EINTR) continue;
      ++left;
    }
  }
  return left;
}

enum class Stop { kEnded, kTimedOut, kWroteTooMuch };

/// Waits until the process ends, or has to be ended, and reads what it sends.
Stop Wait(int process, Clock::time_point end, Channel& output, Channel& report) {
  while (true) {
    pollfd waiting[] = {{process, POLLIN, 0},
                        {output.input.Number(), POLLIN, 0},
                        {report.input.Number(), POLLIN, 0},
                        {signalDescriptor, POLLIN, 0}};
    const auto left = std::chrono::ceil<milliseconds>(end - Clock::now()).count();
    if (left <= 0) return Stop::kTimedOut;
    if (poll(waiting, std::size(waiting), static_cast<int>(left)) < 0) continue;
    signalfd_siginfo received{};
    if (waiting[3].revents && read(signalDescriptor, &received, sizeof received) > 0)
      throw Interrupted{static_cast<int>(received.ssi_signo)};
    output.Read();
    report.Read();
    if (output.IsFull() || report.IsFull()) return Stop::kWroteTooMuch;
    if (waiting[0].revents) return Stop::kEnded;
  }
}

/// Why a process failed that has found nothing to say itself; empty when it is as it should be.
std::string Reason(Stop stop, int status, bool hasReported, const std::string& output, size_t left,
                   std::chrono::seconds limit) {
  if (stop == Stop::kTimedOut) return "did not end in " + std::to_string(limit.count()) + " s";
  if (stop == Stop::kWroteTooMuch)
    return "wrote more than " + std::to_string(kOutputLimit >> 10) + " KiB of output";
  if (WIFSIGNALED(status))
    return "ended by signal " + std::to_string(WTERMSIG(status)) + " (" +
           strsignal(WTERMSIG(status)) + ")";
  std::string ended = "ended with exit status " + std::to_string(WEXITSTATUS(status));
  if (!hasReported) return ended + " before its end was reported";
  if (WEXITSTATUS(status) != 0) return ended;
  if (!output.empty()) return "wrote to its standard output or error";
  if (left > 0) return "left " + std::to_string(left) + " processes";
  return "";
}

}  // namespace

void ReceiveSignals() {
  sigset_t ending;
  sigemptyset(&ending);
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&ending, number);
  sigprocmask(SIG_BLOCK, &ending, nullptr);
  signalDescriptor = OrThrow(signalfd(-1, &ending, SFD_CLOEXEC));
}

void EndBySignal(int number) {
  signal(number, SIG_DFL);
  sigset_t all;
  sigemptyset(&all);
  raise(number);
  sigprocmask(SIG_SETMASK, &all, nullptr);
}

Ending RunApart(const std::function<void()>& run, std::chrono::seconds limit) {
  OrThrow(prctl(PR_SET_CHILD_SUBREAPER, 1));
  std::fflush(nullptr);
  ForgetTried();
  const auto end = Clock::now() + limit;
  const std::string token = RandomToken();
  Channel output(kOutputLimit);
  Channel report(kReportLimit);
  const pid_t process = OrThrow(fork());
  if (process == 0) PlayAndExit(run, token, output, report);
  setpgid(process, process);
  output.output.Set(-1);
  report.output.Set(-1);

  const Descriptor processDescriptor(static_cast<int>(syscall(SYS_pidfd_open, process, 0)));
  int status = 0;
  Stop stop;
  try {
    OrThrow(processDescriptor.Number());
    stop = Wait(processDescriptor.Number(), end, output, report);
  } catch (...) {
    EndProcesses(process, &status);
    throw;
  }
  const size_t left = EndProcesses(process, &status);

  Ending ending;
  ending.timedOut = stop == Stop::kTimedOut;
  ending.findings = std::move(report.received);
  ending.output = std::move(output.received);
  const size_t last = ending.findings.rfind(token);
  if (last != std::string::npos) {
    ending.passed = ending.findings.substr(last + token.size()) == " passed\n";
    ending.findings.erase(last);
  }
  ending.why = Reason(stop, status, last != std::string::npos, ending.output, left, limit);
  return ending;
}

void Report(const std::string& line) {
  const std::string text = line + '\n';
  for (size_t sent = 0; sent < text.size();) {
    const ssize_t count = write(reportDescriptor, text.data() + sent, text.size() - sent);
    if (count < 0 && errno != EINTR) return;
    if (count > 0) sent += static_cast<size_t>(count);
  }
}

}  // namespace check
