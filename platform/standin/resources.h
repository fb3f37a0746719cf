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

/// The folder of the resources that belong to the running program: "resources" beside the
/// program's own folder; where the system does not tell that one, "resources" in the current
/// folder.
std::filesystem::path DefaultResourceRoot();

}  // namespace standin
