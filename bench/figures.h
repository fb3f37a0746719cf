#pragma once

#include <benchmark/benchmark.h>

#include <iosfwd>
#include <map>
#include <optional>
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
  /// The lines must live as long as the program; tables are printed by ascending `place`.
  Table(int place, std::span<const Line> lines);
};

/// Prints what Google Benchmark's console prints, and keeps the medians.
class FigureReporter : public benchmark::ConsoleReporter {
 public:
  FigureReporter() : ConsoleReporter(OO_Tabular) {}

  void ReportRuns(const std::vector<Run>& runs) override;

  /// All lines whose figures were measured, in Markdown.
  void PrintTable(std::ostream& output) const;

 private:
  void PrintLine(std::ostream& output, const Line& line) const;

  std::map<std::string, double> figures;  // seconds, bytes or pieces
};

}  // namespace bench
