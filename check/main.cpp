#include <signal.h>

#include <algorithm>
#include <boost/program_options.hpp>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "check/apart.h"
#include "check/check.h"
#include "check/findings.h"
#include "platform/standin/module.h"
#include "testkit/temporary_folder.h"

namespace check {
namespace {

constexpr int kAllPassed = 0;
constexpr int kSomeFailed = 1;
constexpr int kCannotRun = 2;

constexpr std::chrono::seconds kTimeLimit{30};
constexpr std::chrono::seconds kLongTimeLimit{7200};
constexpr std::chrono::seconds kLongestTimeLimit{1000000};

/// After so many checks that reach the time limit, the others are left out.
constexpr int kMostTimeOuts = 3;
constexpr int kMostLinesOfOutput = 20;

constexpr const char* kHelp =
    R"(Usage: tesserae-check MODULE [OPTION]...
  or:  tesserae-check --list

Plays a host to a built TesseraeUI module and checks what it does. Each check
runs in a process of its own and reports in a line whether it passed.

  --list        names the checks and runs none of them
  --only NAME   runs the check or the group of this name, or all whose name
                begins so; may be given more than once
  --seed N      the first number from which random input is made; otherwise 1.
                A finding names its seed; with that one the first of the
                numbered checks shows it again
  --long        tries every fault at every place and far more random input;
                takes many minutes
  --limit N     ends a check that takes longer than N seconds; otherwise 30, or
                two hours with --long
  --format F    text, or tap for the Test Anything Protocol
  --verbose     reports which operations of the host the module calls, in their
                order, and what each check looks at
  -h, --help    shows this text
  --version     shows the version

The exit status is 0 when all checks passed, 1 when some failed, and 2 when
nothing could be checked or the results could not be written.
)";

struct Check {
  std::string name;
  std::function<void()> run;
};

/// A reason for which nothing can be checked.
struct Refusal : std::runtime_error {
  using std::runtime_error::runtime_error;
};

void Print(const std::string& text) {
  std::fputs(text.c_str(), stdout);
  if (std::fflush(stdout) != 0) throw Refusal("standard output cannot be written");
}

bool WritesTap() {
  return settings.format == "tap";
}

/// Each line behind the prefix, at most `most` of them.
std::string Indented(const std::string& text, int most) {
  const char* const prefix = WritesTap() ? "# " : "    ";
  std::istringstream lines(text);
  std::string indented;
  for (std::string line; std::getline(lines, line); --most) {
    if (most == 0) return indented + prefix + "...\n";
    indented += prefix + OnOneLine(line) + '\n';
  }
  return indented;
}

std::string Describe(const Ending& ending) {
  std::string text = Indented(ending.findings, -1);
  const std::string tried = Tried();
  const char* const in = tried.empty() ? "" : ", in: ";
  if (!ending.why.empty()) text += Indented(ending.why + in + tried, 1);
  if (!ending.output.empty())
    text += Indented("its output:\n" + ending.output, kMostLinesOfOutput + 1);
  if (!ending.IsGood() && !Told().empty()) text += Indented("what was done:\n" + Told(), -1);
  return text;
}

Ending RunWithinLimit(const std::function<void()>& run) {
  const auto usual = settings.isLong ? kLongTimeLimit : kTimeLimit;
  return RunApart(run, settings.limit.count() > 0 ? settings.limit : usual);
}

int RunAll(const std::vector<Check>& checks) {
  size_t played = 0, failed = 0;
  int timeOuts = 0;
  if (WritesTap()) Print("TAP version 13\n1.." + std::to_string(checks.size()) + "\n");
  for (const Check& check : checks) {
    const Ending ending = RunWithinLimit(check.run);
    const bool isGood = ending.IsGood();
    char line[200];
    if (WritesTap()) {
      std::snprintf(line, sizeof line, "%s %zu - %s\n", isGood ? "ok" : "not ok", played + 1,
                    check.name.c_str());
    } else {
      std::snprintf(line, sizeof line, "%-62s %s\n", check.name.c_str(),
                    isGood ? "passed" : "failed");
    }
    Print(line + Describe(ending));
    ++played;
    failed += !isGood;
    timeOuts += ending.timedOut;
    if (timeOuts == kMostTimeOuts && played < checks.size()) {
      Print(WritesTap() ? "Bail out! Too many checks reach the time limit\n"
                        : "Too many checks reach the time limit; the others are left out.\n");
      break;
    }
  }
  if (!WritesTap())
    Print(std::to_string(played) + " checks, " + std::to_string(failed) + " failed\n");
  return failed > 0 ? kSomeFailed : kAllPassed;
}

/// Nothing of the module may be loaded in this process, so this is tried apart. Throws Refusal.
void ExpectModule() {
  const Ending ending = RunWithinLimit([] {
    if (is_regular_file(settings.module)) ExpectWholeModuleFile();
    standin::ModuleImage(settings.module);
  });
  if (ending.passed) return;
  const std::string& said = ending.findings.empty() ? ending.why : ending.findings;
  const std::string reason = said.substr(0, said.find('\n'));
  const std::string file = OnOneLine(settings.module.string());
  throw Refusal(reason.find(file) == reason.npos ? "cannot load " + file + ": " + reason : reason);
}

/// Reads the command line into `settings`. Answers the names that are asked for. Throws Refusal and
/// the library's exceptions.
boost::program_options::variables_map ReadCommandLine(int count, char** arguments) {
  namespace options = boost::program_options;
  options::options_description known;
  int64_t limit = 0;
  std::string seed, module;
  known.add_options()("list", "")("only", options::value<std::vector<std::string>>())(
      "seed", options::value(&seed))("long", options::bool_switch(&settings.isLong))(
      "limit", options::value(&limit))("format", options::value(&settings.format))(
      "verbose", options::bool_switch(&settings.isVerbose))("help,h", "")("version", "")(
      "module", options::value(&module));
  options::positional_options_description positions;
  positions.add("module", 1);
  options::variables_map given;
  options::store(
      options::command_line_parser(count, arguments).options(known).positional(positions).run(),
      given);
  options::notify(given);

  if (!seed.empty()) {
    // The library reads -1 as the greatest number.
    if (seed.size() > 19 || seed.find_first_not_of("0123456789") != seed.npos)
      throw Refusal("--seed needs a number from 0 to 9999999999999999999");
    settings.seed = std::strtoull(seed.c_str(), nullptr, 10);
  }
  if (given.count("limit") > 0 && limit < 1) throw Refusal("--limit needs a number from 1");
  settings.limit = std::min(std::chrono::seconds(limit), kLongestTimeLimit);
  if (settings.format != "text" && settings.format != "tap")
    throw Refusal("--format needs text or tap");
  settings.module = module;
  return given;
}

int Run(int count, char** arguments) {
  const auto given = ReadCommandLine(count, arguments);
  if (given.count("help") > 0) return Print(kHelp), kAllPassed;
  if (given.count("version") > 0) return Print("tesserae-check " TESSERAE_VERSION "\n"), kAllPassed;

  std::vector<Check> all;
  const Add add = [&](const std::string& name, const std::function<void()>& run) {
    all.push_back({name, run});
  };
  for (const auto group : {AddFileChecks, AddStartUpChecks, AddMessageChecks, AddReportChecks,
                           AddReloadChecks, AddDialogChecks, AddFaultChecks, AddRandomChecks})
    group(add);
  std::vector<Check> wanted = all;
  if (given.count("only") > 0) {
    const auto& names = given["only"].as<std::vector<std::string>>();
    for (const std::string& name : names)
      if (std::ranges::none_of(all, [&](auto& check) { return check.name.starts_with(name); }))
        throw Refusal("there is no check " + name + "; --list names them");
    std::erase_if(wanted, [&](auto& check) {
      return std::ranges::none_of(names, [&](auto& name) { return check.name.starts_with(name); });
    });
  }
  if (given.count("list") > 0) {
    for (const Check& check : wanted) Print(check.name + '\n');
    return kAllPassed;
  }
  if (settings.module.empty()) throw Refusal("a module is needed; --help says more");
  ReceiveSignals();
  // For files of checks that are killed before they delete them.
  const testkit::TemporaryFolder folder;
  setenv("TMPDIR", folder.path.c_str(), 1);
  ExpectModule();
  return RunAll(wanted);
}

}  // namespace
}  // namespace check

int main(int count, char** arguments) try {
  signal(SIGPIPE, SIG_IGN);  // a closed standard output is an error like others
  check::ShareTrying();
  // Texts are English, whatever the user's environment asks for.
  setenv("LANGUAGE", "en", 1);
  return check::Run(count, arguments);
} catch (const check::Interrupted& interrupted) {
  check::EndBySignal(interrupted.signal);
} catch (const std::exception& error) {
  std::fprintf(stderr, "tesserae-check: %s\n", check::OnOneLine(error.what()).c_str());
  return check::kCannotRun;
}
