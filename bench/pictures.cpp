// Whole processes: the studio makes a mosaic of a picture file, and libvips' own program reduces
// the same file.

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <fstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "bench/figures.h"
#include "bench/photograph.h"

namespace {

using Arguments = std::vector<std::string>;

pid_t Start(const Arguments& arguments) {
  std::vector<char*> pointers;
  for (const std::string& argument : arguments)
    pointers.push_back(const_cast<char*>(argument.c_str()));
  pointers.push_back(nullptr);
  pid_t process = 0;
  if (posix_spawnp(&process, pointers[0], nullptr, nullptr, pointers.data(), environ) != 0)
    throw std::runtime_error(arguments[0] + " cannot be started");
  return process;
}

void Expect(int status, const Arguments& arguments) {
  if (status != 0) throw std::runtime_error(arguments[0] + " failed");
}

void Run(const Arguments& arguments) {
  int status = 0;
  waitpid(Start(arguments), &status, 0);
  Expect(status, arguments);
}

/// Resident memory of a process and its children, in bytes; 0 after its end.
double MemoryOf(const std::string& process) {
  double bytes = 0;
  std::ifstream status("/proc/" + process + "/status");
  for (std::string word; status >> word;) {
    double kilobytes = 0;
    if (word == "VmRSS:" && status >> kilobytes) bytes = kilobytes * 1024;
  }
  std::ifstream children("/proc/" + process + "/task/" + process + "/children");
  for (std::string child; children >> child;) bytes += MemoryOf(child);
  return bytes;
}

/// The most memory that a run takes together with its children.
double PeakOf(const Arguments& arguments) {
  const pid_t process = Start(arguments);
  int status = 0;
  double peak = 0;
  while (waitpid(process, &status, WNOHANG) == 0) {
    peak = std::max(peak, MemoryOf(std::to_string(process)));
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  Expect(status, arguments);
  return peak;
}

/// The pictures, made when they are first asked for.
class Pictures {
 public:
  Pictures() {
    QFile gestures(folder.filePath("ok"));
    if (!gestures.open(QIODevice::WriteOnly) || gestures.write("key Return\n") < 0)
      throw std::runtime_error("the gestures cannot be written");
  }

  std::string Path(const char* name) const { return folder.filePath(name).toStdString(); }

  /// Copies of the photograph side by side; `options` are those of the file's format.
  std::string Repeated(const std::string& name, int across, int down, const char* options) {
    const std::string path = Path(name.c_str());
    if (QFile::exists(path.c_str())) return path;
    const std::string tile = Path("tile.jpg");
    if (!QFile::exists(tile.c_str()) &&
        !bench::MakePhotograph(2000, 1000).save(tile.c_str(), "JPG", 90)) {
      throw std::runtime_error("the photograph cannot be written");
    }
    Run({"vips", "replicate", tile, path + options, std::to_string(across), std::to_string(down)});
    return path;
  }

  std::string Of(int64_t megapixels) {
    switch (megapixels) {
      case 2:
        return PICTURES "/sample.jpg";
      case 18:
        return Repeated("18.jpg", 3, 3, "[Q=90]");
      case 192:
        return Repeated("192.jpg", 8, 12, "[Q=90]");
      default:
        return Repeated("2560.tif", 32, 40, "[compression=jpeg,Q=90]");
    }
  }

 private:
  QTemporaryDir folder;
};

Pictures& ThePictures() {
  static Pictures pictures;
  return pictures;
}

Arguments MosaicOf(const std::string& picture) {
  return {STUDIO,
          picture,
          "--quiet",
          "--gestures",
          ThePictures().Path("ok"),
          "--state",
          ThePictures().Path("state"),
          "--export",
          ThePictures().Path("mosaic.svg")};
}

Arguments ReductionOf(const std::string& picture) {
  return {"vips", "shrink", picture, ThePictures().Path("reduced.png"), "160", "160"};
}

template <Arguments (*kCommand)(const std::string&)>
void Time(benchmark::State& state) {
  const Arguments command = kCommand(ThePictures().Of(state.range(0)));
  for (auto _ : state) Run(command);
}

void Memory(benchmark::State& state) {
  double peak = 0;
  for (auto _ : state) peak = std::max(peak, PeakOf(MosaicOf(ThePictures().Of(state.range(0)))));
  state.counters["peak"] = peak;
}

BENCHMARK(Time<MosaicOf>)
    ->Name("Pictures/mosaic")
    ->Arg(2)
    ->Arg(18)
    ->Arg(192)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Time<ReductionOf>)
    ->Name("Pictures/shrink")
    ->Arg(18)
    ->Arg(192)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Memory)->Name("Pictures/memory")->Arg(2560)->UseRealTime()->Iterations(1);

constexpr const char* kShrink = "`vips shrink` of the same file";
using enum bench::Unit;
constexpr bench::Line kLines[] = {
    {.what = "mosaic of the demo picture, a whole run",
     .figure = "Pictures/mosaic/2",
     .limit = 0.15},
    {.what = "of a JPEG of 18 megapixels",
     .figure = "Pictures/mosaic/18",
     .against = kShrink,
     .peer = "Pictures/shrink/18",
     .limit = 1.1},
    {.what = "of 192 megapixels",
     .figure = "Pictures/mosaic/192",
     .against = kShrink,
     .peer = "Pictures/shrink/192",
     .limit = 0.95},
    {.what = "memory of both processes for a TIFF of 2.6 gigapixels, 64 000 by 40 000",
     .figure = "Pictures/memory/2560:peak",
     .unit = kBytes,
     .limit = 250e6},
};
const bench::Table kTable(10, kLines);

}  // namespace
