#include <signal.h>

#include <algorithm>
#include <boost/program_options.hpp>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include "check/apart.h"
#include "check/findings.h"
#include "platform/standin/module.h"
#include "testkit/temporary_folder.h"

namespace check {
namespace {

namespace options = boost::program_options;

constexpr int kAllPassed = 0;
constexpr int kSomeFailed = 1;
constexpr int kCannotRun = 2;

constexpr std::chrono::seconds kTimeLimit{30};
constexpr std::chrono::seconds kLongTimeLimit{7200};
constexpr std::chrono::seconds kLongestTimeLimit{1000000};

/// After this many checks that reach the time limit, the run ends.
constexpr int kMostTimeOuts = 3;
constexpr int kMostLinesOfOutput = 20;

constexpr const char* kUsage = R"(Usage: tesserae-check MODULE [OPTION]...
  or:  tesserae-check --list

Acts as the host of a built TesseraeUI module and checks what the module does.
Each check runs in a process of its own and reports in one line whether it
passed.

)";

constexpr const char* kExitStatus = R"(
The exit status is 0 when all checks passed, 1 when some failed, and 2 when
nothing could be checked or the results could not be written.
)";

struct Check {
  std::string name;
  std::function<void()> run;
};

/// The reason why nothing can be checked.
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

/// At most `most` lines of the text, each indented; none if the text is empty.
std::string Indented(const std::string& title, const std::string& text, int most = -1) {
  if (text.empty()) return "";
  const char* const prefix = WritesTap() ? "# " : "    ";
  std::istringstream lines(title + text);
  std::string indented;
  for (std::string line; std::getline(lines, line); --most) {
    if (most == 0) return indented + prefix + "...\n";
    indented += prefix + OnOneLine(line) + '\n';
  }
  return indented;
}

std::string Describe(const Ending& ending) {
  const std::string in = ending.why.empty() || ending.steps.empty() ? "" : ", in: " + ending.steps;
  return Indented("", ending.report) + Indented("", ending.why + in, 1) +
         Indented("its output:\n", ending.output, kMostLinesOfOutput + 1) +
         (ending.HasPassed() ? "" : Indented("what was done:\n", ending.story));
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
    const bool hasPassed = ending.HasPassed();
    ++played;
    failed += !hasPassed;
    const std::string padding(check.name.size() < 62 ? 62 - check.name.size() : 0, ' ');
    const std::string line =
        WritesTap() ? (hasPassed ? "ok " : "not ok ") + std::to_string(played) + " - " + check.name
                    : check.name + padding + (hasPassed ? " passed" : " failed");
    Print(line + '\n' + Describe(ending));
    timeOuts += ending.timedOut;
    if (timeOuts == kMostTimeOuts && played < checks.size()) {
      Print(std::string(WritesTap() ? "Bail out! " : "") +
            "Too many checks reach the time limit; the others are left out.\n");
      break;
    }
  }
  if (!WritesTap())
    Print(std::to_string(played) + " checks, " + std::to_string(failed) + " failed\n");
  return failed > 0 ? kSomeFailed : kAllPassed;
}

/// Loads the module in another process, because checks need one in which it has not been loaded
/// before. Throws Refusal if that fails.
void ExpectModule() {
  const Ending ending = RunWithinLimit([] {
    if (is_regular_file(settings.module)) ExpectWholeModuleFile();
    standin::ModuleImage(settings.module);
  });
  // Its output concerns the checks.
  if (ending.isComplete && ending.findings == 0) return;
  const std::string& report = ending.report.empty() ? ending.why : ending.report;
  const std::string reason = report.substr(0, report.find('\n'));
  const std::string file = OnOneLine(settings.module.string());
  throw Refusal(reason.find(file) == reason.npos ? "cannot load " + file + ": " + reason : reason);
}

options::options_description KnownOptions() {
  options::options_description known("Options");
  known.add_options()("list", "print the names of the checks and run none")(
      "only", options::value<std::vector<std::string>>()->value_name("NAME"),
      "run the check or group with this name, or all whose name begins with it; can be repeated")(
      "seed", options::value<std::string>()->value_name("N"),
      "the first seed of random input, 1 by default. A finding names its seed; with that seed the "
      "first of the numbered checks repeats it")(
      "long", options::bool_switch(&settings.isLong),
      "inject every fault at every call and use far more random input; takes many minutes")(
      "limit", options::value<int64_t>()->value_name("N"),
      "end a check that takes longer than N seconds; 30 by default, with --long two hours")(
      "format", options::value(&settings.format)->value_name("F"),
      "text, or tap for the Test Anything Protocol")(
      "verbose", options::bool_switch(&settings.isVerbose),
      "report the module's calls of the host's operations, in their order, and each value that a "
      "check looks at")("help,h", "print this text")("version", "print the version");
  return known;
}

/// Reads the command line into `settings` and returns the options that are given. Throws Refusal
/// and the library's exceptions.
options::variables_map ReadCommandLine(int count, char** arguments) {
  options::options_description all = KnownOptions();
  all.add_options()("module", options::value<std::string>());
  options::positional_options_description positions;
  positions.add("module", 1);
  options::variables_map given;
  options::store(
      options::command_line_parser(count, arguments).options(all).positional(positions).run(),
      given);
  options::notify(given);

  if (given.count("module") > 0) settings.module = given["module"].as<std::string>();
  if (given.count("seed") > 0) {
    // The library reads -1 as the greatest number.
    const auto& seed = given["seed"].as<std::string>();
    if (seed.size() > 19 || seed.find_first_not_of("0123456789") != seed.npos)
      throw Refusal("--seed needs a number from 0 to 9999999999999999999");
    settings.seed = std::strtoull(seed.c_str(), nullptr, 10);
  }
  if (given.count("limit") > 0) {
    const std::chrono::seconds limit(given["limit"].as<int64_t>());
    if (limit.count() < 1) throw Refusal("--limit needs a number from 1");
    settings.limit = std::min(limit, kLongestTimeLimit);
  }
  if (settings.format != "text" && settings.format != "tap")
    throw Refusal("--format needs text or tap");
  return given;
}

/// All checks, or those whose names begin with one of the given. Throws Refusal.
std::vector<Check> Choose(const options::variables_map& given) {
  std::vector<Check> checks;
  for (const auto& addTo : Registration::All())
    addTo([&](auto& name, auto run) { checks.push_back({name, std::move(run)}); });
  if (given.count("only") == 0) return checks;
  const auto& names = given["only"].as<std::vector<std::string>>();
  for (const std::string& name : names)
    if (std::ranges::none_of(checks, [&](auto& check) { return check.name.starts_with(name); }))
      throw Refusal("there is no check " + name + "; --list names them");
  std::erase_if(checks, [&](auto& check) {
    return std::ranges::none_of(names, [&](auto& name) { return check.name.starts_with(name); });
  });
  return checks;
}

int Run(int count, char** arguments) {
  const auto given = ReadCommandLine(count, arguments);
  if (given.count("help") > 0) {
    std::ostringstream help;
    help << kUsage << KnownOptions() << kExitStatus;
    return Print(help.str()), kAllPassed;
  }
  if (given.count("version") > 0) return Print("tesserae-check " TESSERAE_VERSION "\n"), kAllPassed;
  const auto checks = Choose(given);
  if (given.count("list") > 0) {
    for (const Check& check : checks) Print(check.name + '\n');
    return kAllPassed;
  }
  if (settings.module.empty()) throw Refusal("a module is needed; see --help");
  ReceiveSignals();
  // Checks that are ended leave their files in this folder.
  const testkit::TemporaryFolder folder;
  setenv("TMPDIR", folder.path.c_str(), 1);
  ExpectModule();
  return RunAll(checks);
}

}  // namespace
}  // namespace check

int main(int count, char** arguments) try {
  signal(SIGPIPE, SIG_IGN);  // a closed standard output is an error like others
  // Texts are English, whatever the user's environment asks for.
  setenv("LANGUAGE", "en", 1);
  return check::Run(count, arguments);
} catch (const check::Interrupted& interrupted) {
  check::EndBySignal(interrupted.signal);
} catch (const std::exception& error) {
  std::fprintf(stderr, "tesserae-check: %s\n", check::OnOneLine(error.what()).c_str());
  return check::kCannotRun;
}
