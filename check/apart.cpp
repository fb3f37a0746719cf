#include "check/apart.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/signalfd.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <system_error>
#include <vector>

#include "check/findings.h"

namespace check {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr off_t kOutputLimit = 64 << 10;
constexpr milliseconds kInterval{100};  // at which the amount of output is looked at

int signalDescriptor = -1;

template <typename Result>
int OrThrow(Result result) {
  if (result < 0)
    throw std::system_error(errno, std::generic_category(), "no process can be started");
  return static_cast<int>(result);
}

struct Descriptor {
  explicit Descriptor(int opened) : number(opened) {}
  ~Descriptor() { close(number); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  const int number;
};

/// Memory for the notes of the next check.
void ShareNotes() {
  if (notes) munmap(notes, sizeof *notes);
  void* const memory = mmap(nullptr, sizeof *notes, PROT_READ | PROT_WRITE,
                            MAP_SHARED | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  notes = memory == MAP_FAILED ? nullptr : static_cast<Notes*>(memory);
  OrThrow(notes ? 0 : -1);
}

/// Opens a file in memory for the output of a check. It cannot grow much beyond the limit: the
/// system writes page by page, so the first page that fails lies behind the limit.
int OpenOutput() {
  const int file = OrThrow(memfd_create("output", MFD_CLOEXEC | MFD_ALLOW_SEALING));
  OrThrow(ftruncate(file, kOutputLimit + sysconf(_SC_PAGESIZE)));
  OrThrow(fcntl(file, F_ADD_SEALS, F_SEAL_GROW | F_SEAL_SHRINK));
  return file;
}

/// The amount of output, up to the limit: the file's position, which the processes share.
off_t Written(int file) {
  return std::clamp<off_t>(lseek(file, 0, SEEK_CUR), 0, kOutputLimit);
}

[[noreturn]] void PlayAndExit(const std::function<void()>& run, int output) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  setpgid(0, 0);
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  signal(SIGPIPE, SIG_DFL);
  const rlimit noCore{};
  setrlimit(RLIMIT_CORE, &noCore);
  dup2(open("/dev/null", O_RDONLY | O_CLOEXEC), STDIN_FILENO);
  dup2(output, STDOUT_FILENO);
  dup2(output, STDERR_FILENO);
  std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);  // what is written before a crash must arrive
  RunToEnd(run);
  std::exit(0);
}

/// The children of this process. The system makes it the parent of orphans among its descendants.
std::vector<pid_t> Children() {
  std::vector<pid_t> children;
  const std::string self = std::to_string(getpid());
  std::ifstream list("/proc/" + self + "/task/" + self + "/children");
  for (pid_t child; list >> child;) children.push_back(child);
  return children;
}

/// Ends the process, its process group and all its descendants. Returns its wait status and how
/// many processes it left.
std::pair<int, size_t> EndProcesses(pid_t process) {
  const auto wait = [](pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) continue;
    return status;
  };
  kill(-process, SIGKILL);
  const int status = wait(process);
  size_t left = 0;
  for (auto orphans = Children(); !orphans.empty(); orphans = Children()) {
    for (const pid_t orphan : orphans) {
      kill(orphan, SIGKILL);
      (void)wait(orphan);
      ++left;
    }
  }
  return {status, left};
}

/// Waits until the process ends by itself, or notes in `ending` why it has to be ended.
void Wait(pid_t process, std::chrono::seconds limit, int output, Ending& ending) {
  const Descriptor descriptor(OrThrow(syscall(SYS_pidfd_open, process, 0)));
  const auto end = steady_clock::now() + limit;
  while (steady_clock::now() < end) {
    pollfd waiting[] = {{descriptor.number, POLLIN, 0}, {signalDescriptor, POLLIN, 0}};
    const auto left = std::chrono::ceil<milliseconds>(end - steady_clock::now());
    if (poll(waiting, 2, static_cast<int>(std::min(left, kInterval).count())) < 0) continue;
    signalfd_siginfo received{};
    if (waiting[1].revents && read(signalDescriptor, &received, sizeof received) > 0)
      throw Interrupted{static_cast<int>(received.ssi_signo)};
    if (Written(output) == kOutputLimit)
      ending.why = "wrote more than " + std::to_string(kOutputLimit >> 10) + " KiB of output";
    if (waiting[0].revents || !ending.why.empty()) return;
  }
  ending.timedOut = true;
  ending.why = "did not end in " + std::to_string(limit.count()) + " s";
}

/// Why a process that ended by itself failed, apart from findings; empty if it did not.
std::string Reason(int status, bool isComplete, bool hasOutput, size_t left) {
  if (WIFSIGNALED(status))
    return "ended by signal " + std::to_string(WTERMSIG(status)) + " (" +
           strsignal(WTERMSIG(status)) + ")";
  std::string ended = "ended with exit status " + std::to_string(WEXITSTATUS(status));
  if (!isComplete) return ended + " before the check was complete";
  if (WEXITSTATUS(status) != 0) return ended;
  if (hasOutput) return "wrote to standard output or error";
  return left > 0 ? "left " + std::to_string(left) + " processes" : "";
}

template <size_t kSize>
std::string TextOf(const char (&text)[kSize]) {
  return {text, strnlen(text, kSize)};
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
  ShareNotes();
  const Descriptor output(OpenOutput());
  const pid_t process = OrThrow(fork());
  if (process == 0) PlayAndExit(run, output.number);
  setpgid(process, process);
  Ending ending;
  try {
    Wait(process, limit, output.number, ending);
  } catch (...) {
    EndProcesses(process);
    throw;
  }
  const auto [status, left] = EndProcesses(process);
  ending.output.resize(static_cast<size_t>(Written(output.number)));
  OrThrow(pread(output.number, ending.output.data(), ending.output.size(), 0));
  ending.isComplete = notes->isComplete;
  if (ending.why.empty())
    ending.why = Reason(status, ending.isComplete, !ending.output.empty(), left);
  ending.findings = notes->failures;
  ending.report = TextOf(notes->findings);
  ending.steps = TextOf(notes->steps);
  if (const std::string operation = TextOf(notes->operation); !operation.empty())
    ending.steps += (ending.steps.empty() ? "" : ", ") + ("after its call of " + operation);
  ending.story = TextOf(notes->story);
  return ending;
}

}  // namespace check
