#include "platform/standin/resource_root.h"

namespace standin {

std::filesystem::path DefaultResourceRoot() {
  std::error_code error;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  const std::filesystem::path prefix = program.parent_path().parent_path();
  const std::filesystem::path installed = prefix / "share" / "tesserae";
  return std::filesystem::is_directory(installed, error) ? installed : prefix / "resources";
}

}  // namespace standin
