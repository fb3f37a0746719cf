#include "platform/standin/resources.h"

#ifdef __APPLE__
#include <mach-o/dyld.h>
#endif

namespace standin {

namespace {

#ifdef __APPLE__

// Untested: the project has no such machine.
std::filesystem::path ProgramFile() {
  uint32_t size = 0;
  _NSGetExecutablePath(nullptr, &size);
  std::string file(size, '\0');
  if (_NSGetExecutablePath(file.data(), &size) != 0) return {};
  std::error_code error;
  return std::filesystem::canonical(file.c_str(), error);
}

#else

std::filesystem::path ProgramFile() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error);
}

#endif

}  // namespace

ResourceFolders ResourceFolders::OfProgram() {
  const std::filesystem::path tree = ProgramFile().parent_path().parent_path();
  return {tree / "share/tesserae", tree / "lib/tesserae/plugins/TesseraeUI"};
}

}  // namespace standin
