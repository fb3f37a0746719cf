#include <getopt.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <string_view>

#include "check/apart.h"
#include "check/check.h"
#include "check/findings.h"
#include "platform/standin/module.h"

namespace {

using check::Check;
using check::settings;

constexpr int kAllPassed = 0;
constexpr int kSomeFailed = 1;
constexpr int kCannotRun = 2;

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

int RunAll(const check::Checks& checks) {
  size_t played = 0, failed = 0;
  int hangs = 0;
  for (const Check& check : checks) {
    const check::Ending ending = check::RunApart(check.run);
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
  const check::Ending ending = check::RunApart([] { standin::ModuleImage(settings.module); });
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
  std::vector<std::string> wanted;
  for (int given; (given = getopt_long(count, arguments, "", kOptions, nullptr)) != -1;) {
    switch (given) {
      case 'l':
        lists = true;
        break;
      case 'o':
        wanted.push_back(optarg);
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

  check::Checks checks = check::AllChecks();
  for (const std::string& name : wanted) {
    if (std::ranges::none_of(checks, [&](const Check& one) { return one.name.starts_with(name); }))
      return Refuse("there is no check " + name + "; --list names them");
  }
  if (!wanted.empty()) {
    std::erase_if(checks, [&](const Check& check) {
      return std::ranges::none_of(
          wanted, [&](const std::string& name) { return check.name.starts_with(name); });
    });
  }
  if (lists) {
    for (const Check& check : checks) std::printf("%s\n", check.name.c_str());
    return kAllPassed;
  }
  if (optind + 1 != count) return Refuse("one module is needed; --help says more");
  settings.module = arguments[optind];
  return CanBeLoaded() ? RunAll(checks) : kCannotRun;
}

}  // namespace

int main(int count, char** arguments) try {
  check::ShareTrying();
  // Texts are English, whatever the user's environment asks for.
  setenv("LANGUAGE", "en", 1);
  return Run(count, arguments);
} catch (const std::exception& error) {
  return Refuse(error.what());
}
