#include <Magick++.h>
#include <benchmark/benchmark.h>

#include <QApplication>
#include <cstdio>
#include <exception>
#include <fstream>
#include <iostream>

#include "bench/figures.h"

/// tesserae-bench TABLE [flags of Google Benchmark]: measures and writes the table to TABLE.
int main(int argc, char** argv) try {
  const QApplication application(argc, argv);
  Magick::InitializeMagick(argv[0]);
  benchmark::Initialize(&argc, argv);
  if (argc != 2) {
    std::fprintf(stderr, "usage: tesserae-bench TABLE [flags of Google Benchmark]\n");
    return 2;
  }
  bench::FigureReporter reporter;
  if (benchmark::RunSpecifiedBenchmarks(&reporter) == 0) return 1;
  std::ofstream table(argv[1]);
  const bool isMet = reporter.PrintTable(table);
  return table.flush() && isMet ? 0 : 1;
} catch (const std::exception& error) {
  std::fprintf(stderr, "tesserae-bench: %s\n", error.what());
  return 1;
}
