#pragma once

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <system_error>

namespace testkit {

/// A folder of this process's own, gone at the end of the scope.
class TemporaryFolder {
 public:
  /// Throws std::system_error.
  TemporaryFolder() {
    std::string name = std::filesystem::temp_directory_path() / "tesseraeXXXXXX";
    if (!mkdtemp(name.data()))
      throw std::system_error(errno, std::generic_category(), "no folder for temporary files");
    path = name;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code error;
    std::filesystem::remove_all(path, error);
  }

  void Write(const std::string& name, const std::string& text) const {
    const std::filesystem::path file = path / name;
    std::filesystem::create_directories(file.parent_path());
    std::filesystem::remove(file);  // a file that is written over goes to the disk each time
    std::ofstream(file, std::ios::binary) << text;
  }

  std::filesystem::path path;
};

inline std::string ContentOf(const std::filesystem::path& file) {
  std::ostringstream content;
  content << std::ifstream(file, std::ios::binary).rdbuf();
  return content.str();
}

}  // namespace testkit
