#include "platform/standin/resources.h"

namespace standin {

std::filesystem::path DefaultResourceRoot() {
  std::error_code error;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  return program.parent_path().parent_path() / "resources";
}

}  // namespace standin
