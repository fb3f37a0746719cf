#include <cxxabi.h>
#include <elf.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <stdexcept>

#include "check/check.h"
#include "check/findings.h"
#include "testkit/temporary_folder.h"

// What the module's file says of it: what it exports, whose memory it takes, and whether anything
// would keep it in the process.

namespace check {
namespace {

/// The module's file as ELF.
class ElfFile {
 public:
  /// Throws std::runtime_error unless the file is ELF and holds all segments that the loader maps.
  ElfFile() {
    if (std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0 || header.e_ident[EI_CLASS] != ELFCLASS64)
      throw std::runtime_error("the file is not a 64-bit ELF file");
    for (size_t i = 0; i < header.e_phnum; ++i) {
      const auto segment = At<Elf64_Phdr>(header.e_phoff + i * sizeof(Elf64_Phdr));
      if (segment.p_offset > bytes.size() || segment.p_filesz > bytes.size() - segment.p_offset)
        throw std::runtime_error("the file is cut short");
      if (segment.p_type == PT_TLS) hasTls = true;
    }
  }

  bool hasTls = false;

 protected:
  template <typename Entry>
  Entry At(size_t offset) const {
    Entry entry;
    if (offset > bytes.size() || bytes.size() - offset < sizeof entry)
      throw std::runtime_error("the file is cut short");
    std::memcpy(&entry, bytes.data() + offset, sizeof entry);
    return entry;
  }

  const std::string bytes = testkit::ContentOf(settings.module);
  const Elf64_Ehdr header = At<Elf64_Ehdr>(0);
};

/// Its symbols, and what its sections say.
class ModuleFile : public ElfFile {
 public:
  struct Symbol {
    std::string name;
    bool isDefined;
    unsigned char binding;
    unsigned char type;
  };

  /// Throws std::runtime_error for a file without a symbol table too.
  ModuleFile() {
    for (size_t i = 0; i < header.e_shnum; ++i) ReadSection(i);
    if (symbols.empty()) throw std::runtime_error("the file has no table of symbols");
  }

  std::vector<Symbol> symbols;
  size_t constructors = 0, destructors = 0;
  bool staysForGood = false;

 private:
  Elf64_Shdr Section(size_t index) const {
    return At<Elf64_Shdr>(header.e_shoff + index * sizeof(Elf64_Shdr));
  }

  void ReadSection(size_t index) {
    const auto section = Section(index);
    const size_t end = section.sh_offset + section.sh_size;
    if (section.sh_type == SHT_INIT_ARRAY) constructors += section.sh_size / sizeof(Elf64_Addr);
    if (section.sh_type == SHT_FINI_ARRAY) destructors += section.sh_size / sizeof(Elf64_Addr);
    if (section.sh_type == SHT_DYNAMIC) {
      for (size_t at = section.sh_offset; at < end; at += sizeof(Elf64_Dyn)) {
        const auto entry = At<Elf64_Dyn>(at);
        if (entry.d_tag == DT_FLAGS_1 && entry.d_un.d_val & DF_1_NODELETE) staysForGood = true;
      }
    }
    if (section.sh_type != SHT_DYNSYM) return;
    const size_t names = Section(section.sh_link).sh_offset;
    for (size_t at = section.sh_offset + sizeof(Elf64_Sym); at < end; at += sizeof(Elf64_Sym)) {
      const auto symbol = At<Elf64_Sym>(at);
      const size_t name = names + symbol.st_name;
      if (name > bytes.size()) throw std::runtime_error("the file is cut short");
      symbols.push_back({bytes.substr(name, bytes.find('\0', name) - name),
                         symbol.st_shndx != SHN_UNDEF,
                         static_cast<unsigned char>(ELF64_ST_BIND(symbol.st_info)),
                         static_cast<unsigned char>(ELF64_ST_TYPE(symbol.st_info))});
    }
  }
};

std::string Readable(const std::string& name) {
  int status = 0;
  const std::unique_ptr<char, void (*)(void*)> text(
      abi::__cxa_demangle(name.c_str(), nullptr, nullptr, &status), std::free);
  return text ? text.get() : name;
}

/// Expects that there is no such symbol.
template <typename IsFault>
void ExpectNone(const char* what, IsFault isFault) {
  std::vector<std::string> found;
  for (const ModuleFile::Symbol& symbol : ModuleFile().symbols)
    if (isFault(symbol)) found.push_back(Readable(symbol.name));
  Expect(what, found, std::vector<std::string>());
}

}  // namespace

void ExpectWholeModuleFile() {
  const ElfFile file;
}

void AddFileChecks(const Add& add) {
  add("file/exports-entry-point-alone", [] {
    bool hasEntry = false;
    // Among all others would be a symbol that is unique in the process, which keeps its image
    // there.
    ExpectNone("exported beside PluginMain", [&](const ModuleFile::Symbol& symbol) {
      const bool isEntry = symbol.name == "PluginMain" && symbol.type == STT_FUNC;
      if (symbol.isDefined && isEntry) hasEntry = true;
      return symbol.isDefined && symbol.binding != STB_LOCAL && !isEntry;
    });
    Expect("PluginMain is exported", hasEntry);
  });

  add("file/takes-memory-from-host", [] {
    ExpectNone("taken from another allocator", [](const ModuleFile::Symbol& symbol) {
      if (symbol.isDefined) return false;
      const std::string_view name = symbol.name;
      for (const char* of : {"_Znw", "_Zna", "_Zdl", "_Zda"})
        if (name.starts_with(of)) return true;
      for (const char* function : {"malloc", "calloc", "realloc", "reallocarray", "free", "strdup",
                                   "aligned_alloc", "posix_memalign", "mmap", "sbrk"})
        if (name == function) return true;
      return false;
    });
  });

  add("file/makes-its-own-strings", [] {
    ExpectNone("strings that another image makes", [](const ModuleFile::Symbol& symbol) {
      const std::string_view name = symbol.name;
      const size_t type = name.find("St7__cxx1112basic_string");
      return !symbol.isDefined && name.starts_with("_ZN") &&
             name.find_first_not_of("KVO", 3) == type;
    });
  });

  add("file/can-leave-process", [] {
    ExpectNone("runs at the end of a thread", [](const ModuleFile::Symbol& symbol) {
      return symbol.name.starts_with("__cxa_thread_atexit");
    });
    const ModuleFile file;
    Expect("has data of threads", file.hasTls, false);
    Expect("is marked to stay", file.staysForGood, false);
  });

  add("file/runs-nothing-on-load-and-unload", [] {
    const ModuleFile file;
    for (const ModuleFile::Symbol& symbol : file.symbols)
      if (symbol.name.starts_with("__asan_")) return;  // a sanitizer has constructors of its own
    // One entry of each is the compiler's own; every further one is the module's.
    Expect("functions to run on load", file.constructors, std::min<size_t>(file.constructors, 1));
    Expect("functions to run on unload", file.destructors, std::min<size_t>(file.destructors, 1));
    ExpectNone("destructors to run on unload", [](const ModuleFile::Symbol& symbol) {
      return symbol.name == "__cxa_atexit" || symbol.name == "atexit" || symbol.name == "on_exit";
    });
  });
}

}  // namespace check
