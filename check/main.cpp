#include <getopt.h>
#include <poll.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <string_view>
#include <system_error>

#include "check/check.h"
#include "check/findings.h"
#include "platform/standin/module.h"

namespace check {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr int kAllPassed = 0;
constexpr int kSomeFailed = 1;
constexpr int kCannotRun = 2;

constexpr std::chrono::seconds kTimeLimit{30};
constexpr std::chrono::seconds kLongTimeLimit{7200};

/// A module that hangs once hangs often; the rest need not be waited for.
constexpr int kMostHangs = 3;

constexpr const char* kHelp =
    R"(Usage: tesserae-check MODULE [OPTION]...
  or:  tesserae-check --list

Plays a host to a built TesseraeUI module and checks what it does. Each check
runs in a process of its own and says in a line whether it passed.

  --list       names the checks and runs none of them
  --only NAME  runs the check or the group of this name, or all whose name
               begins so; may be given more than once
  --seed N     the first number from which random input is made; otherwise 1.
               A finding names its seed; with that one the first of the
               numbered checks shows it again
  --long       tries every fault at every place and far more that is random;
               takes many minutes
  --limit N    ends a check that takes longer than N seconds; otherwise 30, or
               two hours with --long
  --verbose    says which operations of the host the module calls, in their
               order, and what each check looks at
  --help       shows this text

The exit status is 0 when all checks passed, 1 when some failed, and 2 when
nothing could be checked.
)";

constexpr option kOptions[] = {
    {"list", no_argument, nullptr, 'l'},        {"only", required_argument, nullptr, 'o'},
    {"seed", required_argument, nullptr, 's'},  {"long", no_argument, nullptr, 'g'},
    {"limit", required_argument, nullptr, 't'}, {"verbose", no_argument, nullptr, 'v'},
    {"help", no_argument, nullptr, 'h'},        {nullptr, 0, nullptr, 0},
};

struct Check {
  std::string name;
  std::function<void()> run;
};

int Refuse(const std::string& reason) {
  std::fprintf(stderr, "tesserae-check: %s\n", reason.c_str());
  return kCannotRun;
}

bool IsNumber(const char* text) {
  return *text && std::strspn(text, "0123456789") == std::strlen(text);
}

/// What is no plain text is written so that it can be seen.
void PrintIndented(std::string_view text) {
  bool isAtStart = true;
  for (const char c : text) {
    if (isAtStart) std::fputs("    ", stdout);
    isAtStart = c == '\n';
    if (c == '\n' || (c >= ' ' && c <= '~')) {
      std::putchar(c);
    } else {
      std::printf("\\x%02X", static_cast<unsigned char>(c));
    }
  }
  if (!isAtStart) std::putchar('\n');
}

/// How a process went that ran something apart from this one.
struct Ending {
  bool isGood = false;
  bool hung = false;   // it had to be ended, since its time was over
  std::string how;     // of one that did not end by itself; empty for all others
  std::string output;  // all that it wrote
};

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

/// Runs it in a process of its own, which is good when it ends by itself and has found nothing.
/// An exception that leaves it counts as a finding. Throws std::system_error where there can be no
/// process.
Ending RunApart(const std::function<void()>& run) {
  std::fflush(nullptr);
  ForgetTried();
  int ends[2];
  const pid_t process = pipe(ends) == 0 ? fork() : -1;
  if (process < 0)
    throw std::system_error(errno, std::generic_category(), "no process can be started");
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

int RunAll(const std::vector<Check>& checks) {
  size_t played = 0, failed = 0;
  int hangs = 0;
  for (const Check& check : checks) {
    const Ending ending = RunApart(check.run);
    std::printf("%-62s %s\n", check.name.c_str(), ending.isGood ? "passed" : "failed");
    PrintIndented(ending.output + ending.how);
    std::fflush(stdout);
    ++played;
    failed += !ending.isGood;
    hangs += ending.hung;
    if (hangs == kMostHangs) {
      std::printf("Too many checks did not end; the rest is left out.\n");
      break;
    }
  }
  std::printf("%zu checks, %zu failed\n", played, failed);
  return failed > 0 ? kSomeFailed : kAllPassed;
}

/// Nothing of the module may be loaded here, so this too is tried apart.
bool CanBeLoaded() {
  const Ending ending = RunApart([] { standin::ModuleImage(settings.module); });
  if (ending.isGood) return true;
  // A sanitizer may say more than a line, and the loader's reason names the file itself.
  const std::string& said = ending.how.empty() ? ending.output : ending.how;
  const std::string reason = said.substr(0, said.find('\n'));
  const std::string file = settings.module.string();
  Refuse(reason.find(file) == reason.npos ? file + " cannot be loaded: " + reason : reason);
  return false;
}

int Run(int count, char** arguments) {
  bool lists = false;
  std::vector<std::pair<std::string, bool>> wanted;  // a beginning, and whether a name has it
  for (int given; (given = getopt_long(count, arguments, "", kOptions, nullptr)) != -1;) {
    switch (given) {
      case 'l':
        lists = true;
        break;
      case 'o':
        wanted.push_back({optarg, false});
        break;
      case 's':
        if (!IsNumber(optarg)) return Refuse("--seed needs a number");
        settings.seed = std::strtoull(optarg, nullptr, 10);
        break;
      case 't':
        if (!IsNumber(optarg)) return Refuse("--limit needs a number");
        settings.limit =
            std::chrono::seconds(std::min(std::strtoul(optarg, nullptr, 10), 1000000ul));
        break;
      case 'g':
        settings.isLong = true;
        break;
      case 'v':
        settings.isVerbose = true;
        break;
      case 'h':
        std::fputs(kHelp, stdout);
        return kAllPassed;
      default:
        return kCannotRun;  // getopt has said why
    }
  }

  std::vector<Check> checks;
  const Add add = [&](const std::string& name, const std::function<void()>& run) {
    bool isWanted = wanted.empty();
    for (auto& [beginning, isFound] : wanted)
      if (name.starts_with(beginning)) isWanted = isFound = true;
    if (isWanted) checks.push_back({name, run});
  };
  for (const auto group : {AddFileChecks, AddStartUpChecks, AddMessageChecks, AddReportChecks,
                           AddReloadChecks, AddDialogChecks, AddFaultChecks, AddRandomChecks})
    group(add);
  for (const auto& [name, isFound] : wanted)
    if (!isFound) return Refuse("there is no check " + name + "; --list names them");
  if (lists) {
    for (const Check& check : checks) std::printf("%s\n", check.name.c_str());
    return kAllPassed;
  }
  if (optind + 1 != count) return Refuse("one module is needed; --help says more");
  settings.module = arguments[optind];
  return CanBeLoaded() ? RunAll(checks) : kCannotRun;
}

}  // namespace
}  // namespace check

int main(int count, char** arguments) try {
  check::ShareTrying();
  // Texts are English, whatever the user's environment asks for.
  setenv("LANGUAGE", "en", 1);
  return check::Run(count, arguments);
} catch (const std::exception& error) {
  return check::Refuse(error.what());
}
