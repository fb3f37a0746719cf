#pragma once

#include <benchmark/benchmark.h>

#include <iosfwd>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>

namespace bench {

enum class Unit { kTime, kBytes, kCount };

/// A line of the table: a figure, the peer's figure and the limit. A figure is the name of a
/// benchmark, which stands for its time (processor time unless the benchmark uses real time), or
/// "benchmark:counter".
struct Line {
  const char* what;
  const char* figure;
  Unit unit = Unit::kTime;
  const char* against = nullptr;     // a description of the peer
  const char* peer = nullptr;        // the peer's figure
  std::optional<double> limit = {};  // of the ratio if there is a peer, else of the figure
};

/// Registers lines of the table before main. The first word of their benchmarks' names selects them
/// on the command line.
class Table {
 public:
  /// `lines` must outlive the program's run. Tables are printed by ascending `place`, which is
  /// unique.
  Table(int place, std::span<const Line> lines);
};

/// Prints like Google Benchmark's console reporter and collects the medians.
class FigureReporter : public benchmark::ConsoleReporter {
 public:
  FigureReporter() : ConsoleReporter(OO_Tabular) {}

  void ReportRuns(const std::vector<Run>& runs) override;

  /// Writes all lines of the words that ran, in Markdown. Returns false if a figure was not
  /// measured, which its line then states, or exceeds its limit.
  bool PrintTable(std::ostream& output) const;

 private:
  bool PrintLine(std::ostream& output, const Line& line) const;

  std::map<std::string, double> figures;  // in seconds, bytes or as a count
  std::set<std::string> words;            // that select what ran
};

}  // namespace bench
