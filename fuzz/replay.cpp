// Stands in for the fuzzing engine where there is none: plays the inputs that are kept.

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

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
