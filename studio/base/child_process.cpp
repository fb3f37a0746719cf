#include "studio/base/child_process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>

#include "studio/base/studio_error.h"

namespace {

constexpr int kPipeSize = 1 << 20;
constexpr int kFirstFree = 3;  // the first descriptor after the standard ones

/// The program's path, relative to `bin` both in a build folder and in an installed tree.
std::filesystem::path PathOf(const std::string& name) {
  std::error_code error;
  const auto self = std::filesystem::read_symlink("/proc/self/exe", error);
  return self.parent_path().parent_path() / "lib/tesserae" / name;
}

[[noreturn]] void Refuse(const std::filesystem::path& program, int error) {
  throw StudioError("$$$/Studio/Process/NotStarted=%1 cannot be started: %2",
                    FileName(program.c_str()), ReasonText(error));
}

/// A copy above the standard descriptors, which the child's are copied to.
Descriptor Moved(int descriptor) {
  return Descriptor(fcntl(descriptor, F_DUPFD_CLOEXEC, kFirstFree));
}

}  // namespace

Descriptor::~Descriptor() {
  if (number >= 0) close(number);
}

ChildProcess::ChildProcess(const std::string& name, const std::string& argument, int input) {
  const std::filesystem::path program = PathOf(name);
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) Refuse(program, errno);
  output = Descriptor(ends[0]);
  const Descriptor writeEnd(ends[1]);
  const Descriptor childInput = Moved(input), childOutput = Moved(ends[1]);
  if (childOutput.Get() < 0 || (input >= 0 && childInput.Get() < 0)) Refuse(program, errno);
  fcntl(ends[0], F_SETPIPE_SZ, kPipeSize);  // fewer switches between the two processes

  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  if (input >= 0) posix_spawn_file_actions_adddup2(&files, childInput.Get(), STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&files, childOutput.Get(), STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addclosefrom_np(&files, kFirstFree);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  sigset_t signalSet;
  sigfillset(&signalSet);
  posix_spawnattr_setsigdefault(&attributes, &signalSet);
  sigemptyset(&signalSet);
  posix_spawnattr_setsigmask(&attributes, &signalSet);
  posix_spawnattr_setflags(&attributes,
                           POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
  char* const arguments[] = {const_cast<char*>(name.c_str()),
                             argument.empty() ? nullptr : const_cast<char*>(argument.c_str()),
                             nullptr};
  const int error = posix_spawn(&process, program.c_str(), &files, &attributes, arguments, environ);
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&files);
  if (error != 0) {
    process = -1;
    Refuse(program, error);
  }
}

ChildProcess::~ChildProcess() {
  if (process < 0) return;
  kill(process, SIGKILL);
  Wait();
}

void ChildProcess::AllowSeconds(unsigned long seconds) {
  rlimit limit{};
  if (prlimit(process, RLIMIT_CPU, nullptr, &limit) != 0) return;
  limit.rlim_cur = std::min<rlim_t>(limit.rlim_max, seconds);
  prlimit(process, RLIMIT_CPU, &limit, nullptr);
}

int ChildProcess::Wait() {
  int status = 0;
  while (waitpid(process, &status, 0) < 0 && errno == EINTR) continue;
  process = -1;
  return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
}
