#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <stdexcept>

#include "bench/figures.h"
#include "bench/mosaic_request.h"
#include "bench/photograph.h"
#include "bench/process_memory.h"
#include "studio/export/mosaic_export.h"
#include "studio/mosaic/mosaic_job.h"

namespace {

constexpr int kTilesAcross = 1000;
constexpr qint64 kPiece = 1 << 16;

/// A temporary folder on the disk that holds the program.
class Scratch {
 public:
  QString Path() const { return folder.filePath("mosaic.svg"); }

 private:
  QTemporaryDir folder{QCoreApplication::applicationDirPath() + "/bench-XXXXXX"};
};

void Open(QFile& file) {
  if (file.open(QIODevice::WriteOnly | QIODevice::Truncate)) return;
  throw std::runtime_error("no file can be written beside the program");
}

void WriteSvg(const Picture& picture, int tilesDown, const QString& path) {
  QFile file(path);
  Open(file);
  MosaicJob job(picture, {bench::MosaicRequest(picture, kTilesAcross, tilesDown), {}});
  job.Add(ExportKindOf(path).makeSink(file, job.Geometry(), job.Below(), 0));
  if (!job.Run([](int) { return true; })) throw std::runtime_error("the mosaic is not whole");
}

void Export(benchmark::State& state) {
  const Picture picture(bench::MakePhotograph(1200, 1200));
  const Scratch scratch;
  const int tilesDown = int(state.range(0));
  const double peak = bench::PeakGrowth([&] { WriteSvg(picture, tilesDown, scratch.Path()); });
  for (auto _ : state) WriteSvg(picture, tilesDown, scratch.Path());
  state.counters["peak"] = peak;
  state.counters["bytes"] = double(QFile(scratch.Path()).size());
}

void WriteBytes(benchmark::State& state) {
  const Scratch scratch;
  WriteSvg(Picture(bench::MakePhotograph(1200, 1200)), int(state.range(0)), scratch.Path());
  QFile source(scratch.Path());
  const QByteArray bytes = source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
  if (bytes.isEmpty()) throw std::runtime_error("the mosaic cannot be read again");
  for (auto _ : state) {
    QFile file(scratch.Path());
    Open(file);
    for (qint64 at = 0; at < bytes.size(); at += kPiece) {
      file.write(bytes.constData() + at, std::min(kPiece, bytes.size() - at));
    }
    if (!file.flush() || file.error() != QFile::NoError)
      throw std::runtime_error("the bytes cannot be written");
  }
}

BENCHMARK(Export)
    ->Name("Svg/export")
    ->Arg(10)
    ->Arg(1000)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(WriteBytes)->Name("Svg/bytes")->Arg(1000)->UseRealTime()->Unit(benchmark::kMillisecond);

using enum bench::Unit;
constexpr bench::Line kLines[] = {
    {.what = "SVG of a million tiles",
     .figure = "Svg/export/1000",
     .against = "writing the same bytes",
     .peer = "Svg/bytes/1000",
     .limit = 3},
    {.what = "its size", .figure = "Svg/export/1000:bytes", .unit = kBytes},
    {.what = "memory that a million tiles take at the peak",
     .figure = "Svg/export/1000:peak",
     .unit = kBytes,
     .against = "ten thousand tiles",
     .peer = "Svg/export/10:peak",
     .limit = 1.25},
};
const bench::Table kTable(8, kLines);

}  // namespace
