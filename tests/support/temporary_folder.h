#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

/// A folder of this test's own, gone at the end of the scope.
class TemporaryFolder {
 public:
  TemporaryFolder() : path(mkdtemp((testing::TempDir() + "tesseraeXXXXXX").data())) {}
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

  const std::filesystem::path path;
};
