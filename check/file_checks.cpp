#include <cxxabi.h>
#include <gelf.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <stdexcept>

#include "check/findings.h"
#include "testkit/temporary_folder.h"

// Checks of the module's file: what it exports, whose memory it uses, and whether anything would
// keep it in the process.

namespace check {
namespace {

/// The module's file as ELF.
struct ModuleFile {
  struct Symbol {
    std::string name;
    bool isDefined;
    unsigned char binding;
    unsigned char type;
  };

  /// Throws std::runtime_error unless the file is ELF and holds all segments that the loader maps.
  ModuleFile() {
    std::string bytes = testkit::ContentOf(settings.module);
    elf_version(EV_CURRENT);
    const std::unique_ptr<Elf, int (*)(Elf*)> elf(elf_memory(bytes.data(), bytes.size()), elf_end);
    GElf_Ehdr header;
    if (!elf || gelf_getclass(elf.get()) != ELFCLASS64 || !gelf_getehdr(elf.get(), &header))
      throw std::runtime_error("the file is not a 64-bit ELF file");
    ReadSegments(elf.get(), header.e_phnum, bytes.size());
    for (Elf_Scn* section = nullptr; (section = elf_nextscn(elf.get(), section));)
      ReadSection(elf.get(), section);
  }

  std::vector<Symbol> symbols;
  size_t constructors = 0, destructors = 0;
  bool hasThreadLocals = false;
  bool isMarkedToStay = false;

 private:
  void ReadSegments(Elf* elf, int count, size_t size) {
    GElf_Phdr segment;
    for (int i = 0; i < count; ++i) {
      if (!gelf_getphdr(elf, i, &segment) || segment.p_offset > size ||
          segment.p_filesz > size - segment.p_offset)
        throw std::runtime_error("the file is cut short");
      hasThreadLocals |= segment.p_type == PT_TLS;
    }
  }

  void ReadSection(Elf* elf, Elf_Scn* section) {
    GElf_Shdr header;
    if (!gelf_getshdr(section, &header)) throw std::runtime_error(elf_errmsg(-1));
    if (header.sh_type == SHT_INIT_ARRAY) constructors += header.sh_size / sizeof(Elf64_Addr);
    if (header.sh_type == SHT_FINI_ARRAY) destructors += header.sh_size / sizeof(Elf64_Addr);
    Elf_Data* const data = elf_getdata(section, nullptr);
    GElf_Dyn entry;
    if (header.sh_type == SHT_DYNAMIC)
      for (int i = 0; gelf_getdyn(data, i, &entry); ++i)
        isMarkedToStay |= entry.d_tag == DT_FLAGS_1 && entry.d_un.d_val & DF_1_NODELETE;
    GElf_Sym symbol;
    if (header.sh_type != SHT_DYNSYM) return;
    for (int i = 1; gelf_getsym(data, i, &symbol); ++i) {
      const char* const name = elf_strptr(elf, header.sh_link, symbol.st_name);
      if (!name) throw std::runtime_error(elf_errmsg(-1));
      symbols.push_back({name, symbol.st_shndx != SHN_UNDEF,
                         static_cast<unsigned char>(GELF_ST_BIND(symbol.st_info)),
                         static_cast<unsigned char>(GELF_ST_TYPE(symbol.st_info))});
    }
  }
};

std::string Demangled(const std::string& name) {
  int status = 0;
  const std::unique_ptr<char, void (*)(void*)> text(
      abi::__cxa_demangle(name.c_str(), nullptr, nullptr, &status), std::free);
  return text ? text.get() : name;
}

/// Expects that no symbol is a fault. Throws std::runtime_error if there are no symbols.
template <typename IsFault>
void ExpectNone(const char* what, IsFault isFault) {
  const ModuleFile file;
  if (file.symbols.empty()) throw std::runtime_error("the file has no symbol table");
  std::vector<std::string> found;
  for (const ModuleFile::Symbol& symbol : file.symbols)
    if (isFault(symbol)) found.push_back(Demangled(symbol.name));
  Expect(what, found, std::vector<std::string>());
}

bool IsOneOf(const std::string& name, std::initializer_list<const char*> names) {
  return std::ranges::find(names, name) != names.end();
}

CHECK("file/exports-entry-point-alone") {
  bool hasEntry = false;
  // Symbols that are unique in the process count too; they keep the module loaded.
  ExpectNone("exported besides PluginMain", [&](const ModuleFile::Symbol& symbol) {
    const bool isEntry = symbol.name == "PluginMain" && symbol.type == STT_FUNC;
    hasEntry |= symbol.isDefined && isEntry;
    return symbol.isDefined && symbol.binding != STB_LOCAL && !isEntry;
  });
  Expect("PluginMain is exported", hasEntry);
}

CHECK("file/takes-memory-from-host") {
  ExpectNone("imported from another allocator", [](const ModuleFile::Symbol& symbol) {
    return !symbol.isDefined &&
           (IsOneOf(symbol.name.substr(0, 4), {"_Znw", "_Zna", "_Zdl", "_Zda"}) ||
            IsOneOf(symbol.name, {"malloc", "calloc", "realloc", "reallocarray", "free", "strdup",
                                  "aligned_alloc", "posix_memalign", "mmap", "sbrk"}));
  });
}

CHECK("file/contains-its-own-strings") {
  ExpectNone("operations of std::string from another image", [](const ModuleFile::Symbol& symbol) {
    const size_t type = symbol.name.find("St7__cxx1112basic_string");
    return !symbol.isDefined && symbol.name.starts_with("_ZN") &&
           symbol.name.find_first_not_of("KVO", 3) == type;
  });
}

CHECK("file/can-be-unloaded") {
  ExpectNone("runs at the end of a thread", [](const ModuleFile::Symbol& symbol) {
    return symbol.name.starts_with("__cxa_thread_atexit");
  });
  const ModuleFile file;
  Expect("has thread-local data", file.hasThreadLocals, false);
  Expect("is marked to stay loaded", file.isMarkedToStay, false);
}

CHECK("file/runs-nothing-on-load-and-unload") {
  const ModuleFile file;
  for (const ModuleFile::Symbol& symbol : file.symbols)
    if (symbol.name.starts_with("__asan_")) return;  // a sanitizer has constructors of its own
  // The compiler adds one entry to each list.
  Expect("functions to run on load", file.constructors, std::min<size_t>(file.constructors, 1));
  Expect("functions to run on unload", file.destructors, std::min<size_t>(file.destructors, 1));
  ExpectNone("registers functions to run on unload", [](const ModuleFile::Symbol& symbol) {
    return IsOneOf(symbol.name, {"__cxa_atexit", "atexit", "on_exit"});
  });
}

}  // namespace

void ExpectWholeModuleFile() {
  const ModuleFile file;
}

}  // namespace check
