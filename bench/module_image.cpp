#include <link.h>

#include <filesystem>
#include <memory>
#include <stdexcept>

#include "bench/figures.h"
#include "platform/standin/module.h"

namespace {

/// The loader's work for the module.
struct ImageFacts {
  uint64_t mappedBytes = 0;
  uint64_t relocations = 0;
};

/// For dl_iterate_phdr: adds up the module's segments and relocations.
int AddFacts(dl_phdr_info* image, size_t, void* sum) {
  if (std::filesystem::path(image->dlpi_name) != MODULE_FILE) return 0;
  auto& facts = *static_cast<ImageFacts*>(sum);
  for (int i = 0; i < image->dlpi_phnum; ++i) {
    const ElfW(Phdr)& segment = image->dlpi_phdr[i];
    if (segment.p_type == PT_LOAD) facts.mappedBytes += segment.p_memsz;
    if (segment.p_type != PT_DYNAMIC) continue;
    const auto* entry = reinterpret_cast<const ElfW(Dyn)*>(image->dlpi_addr + segment.p_vaddr);
    for (; entry->d_tag != DT_NULL; ++entry)
      if (entry->d_tag == DT_RELASZ || entry->d_tag == DT_PLTRELSZ)
        facts.relocations += entry->d_un.d_val / sizeof(ElfW(Rela));
  }
  return 1;
}

ImageFacts ReadFacts() {
  const standin::ModuleImage image(MODULE_FILE);
  ImageFacts facts;
  if (dl_iterate_phdr(AddFacts, &facts) == 0) throw std::runtime_error("the module is not loaded");
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
