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

/// A line of the table: a figure, what it is held against, and what it is to reach. A figure is
/// the name of a benchmark, for its time (the processor's unless it asks for real time), or
/// "benchmark:counter".
struct Line {
  const char* what;
  const char* figure;
  Unit unit = Unit::kTime;
  const char* against = nullptr;     // what the peer does, in words
  const char* peer = nullptr;        // its figure
  std::optional<double> limit = {};  // of the ratio where there is a peer, otherwise of the figure
};

/// A set of lines that go into the table; the first word of their benchmarks' names is the word
/// by which a person asks for them. Constructed before main.
class Table {
 public:
  /// The lines must live as long as the program; tables are printed by ascending `place`,
  /// of which each has its own.
  Table(int place, std::span<const Line> lines);
};

/// Prints what Google Benchmark's console prints, and keeps the medians.
class FigureReporter : public benchmark::ConsoleReporter {
 public:
  FigureReporter() : ConsoleReporter(OO_Tabular) {}

  void ReportRuns(const std::vector<Run>& runs) override;

  /// All lines of the words that ran, in Markdown. False when a figure of theirs was not measured,
  /// which its line then says.
  bool PrintTable(std::ostream& output) const;

 private:
  bool PrintLine(std::ostream& output, const Line& line) const;

  std::map<std::string, double> figures;  // seconds, bytes or pieces
  std::set<std::string> words;            // by which what ran is asked for
};

}  // namespace bench
