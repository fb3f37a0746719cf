// Replaces the fuzzing engine in ordinary builds: runs a fuzzer on every file in the given folders.

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "fuzz/fuzzer.h"

int main(int argc, char** argv) {
  size_t inputs = 0;
  for (int i = 1; i < argc; ++i) {
    for (const auto& file : std::filesystem::recursive_directory_iterator(argv[i])) {
      if (!file.is_regular_file()) continue;
      std::ifstream stream(file.path(), std::ios::binary);
      const std::string input{std::istreambuf_iterator<char>(stream), {}};
      std::cout << file.path().filename().string() << std::endl;
      LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(input.data()), input.size());
      ++inputs;
    }
  }
  return inputs == 0;
}
