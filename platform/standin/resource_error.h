#pragma once

#include <cstddef>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace standin {

/// A resource that cannot be used. `what` is "<file>:<line>: <reason>"; line 0 concerns the file as
/// a whole and is left out.
class ResourceError : public std::runtime_error {
 public:
  ResourceError(const std::filesystem::path& file, size_t line, const std::string& reason)
      : std::runtime_error(file.string() + (line ? ":" + std::to_string(line) : "") + ": " +
                           reason) {}
};

}  // namespace standin
