#include "studio/reader/sandbox.h"

#include <fcntl.h>
#include <linux/landlock.h>
#include <malloc.h>
#include <sched.h>
#include <seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr rlim_t kMostMemory = rlim_t{2} << 30;
constexpr rlim_t kMostSeconds = 8;

void Limit(int what, rlim_t amount) {
  rlimit limit{};
  getrlimit(what, &limit);
  limit.rlim_cur = std::min(limit.rlim_cur, amount);
  setrlimit(what, &limit);
}

std::vector<std::string> WordsOf(const char* text) {
  std::istringstream stream(text);
  return {std::istream_iterator<std::string>(stream), {}};
}

// Where decoders find modules, fonts, profiles and tables of encodings.
constexpr const char* kReadableFolders =
    "/usr/lib /usr/lib64 /usr/local/lib /lib /lib64 /usr/share /usr/local/share /etc/fonts "
    "/etc/ImageMagick-6 /var/cache/fontconfig ~/.fonts ~/.local/share/fonts ~/.cache/fontconfig";

[[nodiscard]] bool RestrictFiles() {
  landlock_ruleset_attr handled{};
  handled.handled_access_fs = (LANDLOCK_ACCESS_FS_MAKE_SYM << 1) - 1;  // all of the first version
  const auto ruleset = int(syscall(SYS_landlock_create_ruleset, &handled, sizeof handled, 0));
  if (ruleset < 0) return errno == ENOSYS || errno == EOPNOTSUPP;  // not in this kernel
  const char* const home = std::getenv("HOME");
  for (std::string path : WordsOf(kReadableFolders)) {
    if (path[0] == '~') path.replace(0, 1, home ? home : "");
    landlock_path_beneath_attr rule{};
    rule.allowed_access = LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_READ_DIR;
    rule.parent_fd = open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    syscall(SYS_landlock_add_rule, ruleset, LANDLOCK_RULE_PATH_BENEATH, &rule, 0);
    close(rule.parent_fd);
  }
  const bool isRestricted = syscall(SYS_landlock_restrict_self, ruleset, 0) == 0;
  close(ruleset);
  return isRestricted;
}

// Memory, threads, signals, files that are open, and facts about files and the process.
constexpr const char* kAllowedCalls =
    "brk mmap munmap mremap mprotect madvise futex set_robust_list rseq set_tid_address "
    "sched_yield sched_getaffinity sched_getparam sched_getscheduler membarrier exit "
    "exit_group rt_sigaction rt_sigprocmask rt_sigreturn sigaltstack restart_syscall read "
    "pread64 readv write writev lseek close fstat newfstatat stat lstat statx statfs fstatfs "
    "access faccessat faccessat2 readlink readlinkat getdents64 getcwd fcntl dup fadvise64 "
    "poll ppoll eventfd2 getrandom clock_gettime clock_getres gettimeofday clock_nanosleep "
    "nanosleep getpid gettid getppid getuid geteuid getgid getegid getrlimit getrusage times "
    "sysinfo uname ";

[[nodiscard]] bool RestrictCalls() {
  if (prctl(PR_GET_SECCOMP) < 0) return true;  // this kernel has no filters
  const scmp_filter_ctx filter = seccomp_init(SCMP_ACT_ERRNO(EPERM));
  if (!filter) return false;
  for (const std::string& name : WordsOf(kAllowedCalls))
    seccomp_rule_add(filter, SCMP_ACT_ALLOW, seccomp_syscall_resolve_name(name.c_str()), 0);
  const auto allow = [&](int call, auto... conditions) {
    seccomp_rule_add(filter, SCMP_ACT_ALLOW, call, sizeof...(conditions), conditions...);
  };
  // In place of the library's macros, which are C and not C++.
  const auto equals = [](unsigned argument, scmp_datum_t value) {
    return scmp_arg_cmp{argument, SCMP_CMP_EQ, value, 0};
  };
  const auto masked = [](unsigned argument, scmp_datum_t mask, scmp_datum_t value) {
    return scmp_arg_cmp{argument, SCMP_CMP_MASKED_EQ, mask, value};
  };
  constexpr int kWriting = O_ACCMODE | O_CREAT | O_TRUNC;
  allow(SCMP_SYS(openat), masked(2, kWriting, O_RDONLY));
  allow(SCMP_SYS(open), masked(1, kWriting, O_RDONLY));
  allow(SCMP_SYS(clone), masked(0, CLONE_THREAD, CLONE_THREAD));
  allow(SCMP_SYS(tgkill), equals(0, scmp_datum_t(getpid())));
  allow(SCMP_SYS(prctl), equals(0, PR_SET_NAME));
  allow(SCMP_SYS(prlimit64), equals(0, 0), equals(2, 0));  // asks only
  // Threads fall back to clone, whose flags a filter can see.
  seccomp_rule_add(filter, SCMP_ACT_ERRNO(ENOSYS), SCMP_SYS(clone3), 0);
  seccomp_attr_set(filter, SCMP_FLTATR_CTL_TSYNC, 1);
  const bool isRestricted = seccomp_load(filter) == 0;
  seccomp_release(filter);
  return isRestricted;
}

}  // namespace

void LimitResources() {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  Limit(RLIMIT_CPU, kMostSeconds);
  Limit(RLIMIT_CORE, 0);
#ifndef __SANITIZE_ADDRESS__  // reserves terabytes of addresses
  Limit(RLIMIT_AS, kMostMemory);
#endif
  mallopt(M_ARENA_MAX, 2);  // each reserves addresses of its own
}

bool EnterSandbox() {
  return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && RestrictFiles() && RestrictCalls();
}
