#include "bench/figures.h"

#include <cmath>
#include <ostream>
#include <stdexcept>

namespace bench {

namespace {

std::map<int, std::span<const Line>>& Tables() {
  static std::map<int, std::span<const Line>> tables;
  return tables;
}

struct Scale {
  double unit;
  const char* name;
};

constexpr Scale kTimes[] = {{1, " s"}, {1e-3, " ms"}, {1e-6, " µs"}, {1e-9, " ns"}};
constexpr Scale kSizes[] = {{1 << 20, " MiB"}, {1 << 10, " KiB"}, {1, " B"}};
constexpr Scale kCounts[] = {{1, ""}};

std::span<const Scale> ScalesOf(Unit unit) {
  if (unit == Unit::kTime) return kTimes;
  if (unit == Unit::kBytes) return kSizes;
  return kCounts;
}

std::string ThreeDigits(double value) {
  const double size = std::fabs(value);
  const bool isWhole = size >= 100 || value == std::floor(value);
  char text[32];
  std::snprintf(text, sizeof text, "%.*f", isWhole ? 0 : size >= 10 ? 1 : size >= 1 ? 2 : 3, value);
  return text;
}

std::string Text(double value, Unit unit) {
  const std::span<const Scale> scales = ScalesOf(unit);
  const Scale* fitting = &scales.back();
  for (const Scale& scale : scales) {
    if (std::fabs(value) < scale.unit) continue;
    fitting = &scale;
    break;
  }
  return ThreeDigits(value / fitting->unit) + fitting->name;
}

std::string GoalText(const Line& line) {
  if (!line.limit) return "reported";
  return "at most " +
         (line.peer ? ThreeDigits(*line.limit) + " times" : Text(*line.limit, line.unit));
}

/// The word that selects a figure on the command line.
std::string FirstWord(const std::string& figure) {
  return figure.substr(0, figure.find('/'));
}

}  // namespace

Table::Table(int place, std::span<const Line> lines) {
  if (!Tables().emplace(place, lines).second)
    throw std::logic_error("two tables of figures in place " + std::to_string(place));
}

void FigureReporter::ReportRuns(const std::vector<Run>& runs) {
  ConsoleReporter::ReportRuns(runs);
  for (const Run& run : runs) {
    words.insert(FirstWord(run.run_name.function_name));
    const bool isMedian = run.run_type == Run::RT_Aggregate && run.aggregate_name == "median";
    const bool isOnly = run.run_type == Run::RT_Iteration && run.repetitions <= 1;
    if (run.error_occurred || (!isMedian && !isOnly)) continue;
    // The name without the options that the library appends.
    const std::string& name = run.run_name.function_name;
    const std::string full = run.run_name.args.empty() ? name : name + "/" + run.run_name.args;
    const bool isProcessorTime = run.run_name.time_type.empty();
    const double time = isProcessorTime ? run.GetAdjustedCPUTime() : run.GetAdjustedRealTime();
    figures[full] = time / benchmark::GetTimeUnitMultiplier(run.time_unit);
    for (const auto& [counter, value] : run.counters) figures[full + ":" + counter] = value.value;
  }
}

bool FigureReporter::PrintTable(std::ostream& output) const {
  output << "| what | figure | against | its figure | ratio | goal | | alone |\n"
         << "|---|---:|---|---:|---:|---|---|---|\n";
  bool isMet = true;
  for (const auto& [place, lines] : Tables()) {
    for (const Line& line : lines) isMet &= PrintLine(output, line);
  }
  return isMet;
}

bool FigureReporter::PrintLine(std::ostream& output, const Line& line) const {
  const std::string word = FirstWord(line.figure);
  if (!words.contains(word)) return true;
  const auto found = figures.find(line.figure);
  const auto peer = line.peer ? figures.find(line.peer) : figures.end();
  if (found == figures.end() || (line.peer && peer == figures.end())) {
    output << "| " << line.what << " | not measured | | | | | | `scripts/bench " << word << "` |\n";
    return false;
  }
  const double value = found->second;
  const double held = line.peer ? value / peer->second : value;
  const bool isMissed = line.limit && held > *line.limit;
  const char* verdict = !line.limit ? "" : isMissed ? "**missed**" : "met";
  output << "| " << line.what << " | " << Text(value, line.unit) << " | "
         << (line.against ? line.against : "") << " | "
         << (line.peer ? Text(peer->second, line.unit) : "") << " | "
         << (line.peer ? ThreeDigits(held) : "") << " | " << GoalText(line) << " | " << verdict
         << " | `scripts/bench " << word << "` |\n";
  return !isMissed;
}

}  // namespace bench
