#include <elf.h>
#include <link.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <vector>

#include "bench/figures.h"
#include "platform/standin/module.h"

namespace {

/// The loader's work for an image, read from its file.
struct ImageFacts {
  uint64_t mappedBytes = 0;
  uint64_t relocations = 0;
};

template <class Record>
std::vector<Record> RecordsAt(const std::vector<char>& file, uint64_t offset, uint64_t count) {
  std::vector<Record> records(count);
  if (offset + count * sizeof(Record) > file.size()) throw std::runtime_error("a cut image");
  std::memcpy(records.data(), file.data() + offset, count * sizeof(Record));
  return records;
}

ImageFacts ReadFacts() {
  std::ifstream stream(MODULE_FILE, std::ios::binary);
  const std::vector<char> file{std::istreambuf_iterator<char>(stream), {}};
  const auto header = RecordsAt<ElfW(Ehdr)>(file, 0, 1).front();
  ImageFacts facts;
  for (const auto& segment : RecordsAt<ElfW(Phdr)>(file, header.e_phoff, header.e_phnum)) {
    if (segment.p_type == PT_LOAD) facts.mappedBytes += segment.p_memsz;
    if (segment.p_type != PT_DYNAMIC) continue;
    const uint64_t entries = segment.p_filesz / sizeof(ElfW(Dyn));
    for (const auto& entry : RecordsAt<ElfW(Dyn)>(file, segment.p_offset, entries)) {
      const bool isTable = entry.d_tag == DT_RELASZ || entry.d_tag == DT_PLTRELSZ;
      if (isTable) facts.relocations += entry.d_un.d_val / sizeof(ElfW(Rela));
    }
  }
  return facts;
}

/// The libraries that the module shares with its host are already loaded, as in a host.
void Load(benchmark::State& state) {
  std::unique_ptr<standin::ModuleImage> image;
  for (auto _ : state) {
    image = std::make_unique<standin::ModuleImage>(MODULE_FILE);
    state.PauseTiming();
    image.reset();
    state.ResumeTiming();
  }
  const ImageFacts facts = ReadFacts();
  state.counters["file"] = double(std::filesystem::file_size(MODULE_FILE));
  state.counters["mapped"] = double(facts.mappedBytes);
  state.counters["relocations"] = double(facts.relocations);
}

BENCHMARK(Load)->Name("Module/load");

using enum bench::Unit;
constexpr bench::Line kLines[] = {
    {.what = "module: its file, with names for the debugger",
     .figure = "Module/load:file",
     .unit = kBytes},
    {.what = "what is mapped of it", .figure = "Module/load:mapped", .unit = kBytes},
    {.what = "relocations", .figure = "Module/load:relocations", .unit = kCount},
    {.what = "loading it, warm", .figure = "Module/load", .limit = 1e-3},
};
const bench::Table kTable(6, kLines);

}  // namespace
