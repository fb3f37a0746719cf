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

inline constexpr const char* kUnreadable = "$$$/standin/File/Unreadable=the file cannot be read";
inline constexpr const char* kTooLarge =
    "$$$/standin/File/TooLarge=the file is larger than %1 bytes";

/// The folders in which a host looks for resources.
struct ResourceFolders {
  std::filesystem::path host;    // the host's lists, in "host", and the "translations"
  std::filesystem::path plugin;  // the plug-in's "layouts" and "strings", and its module's file

  /// Those that belong to the running program. They lie at fixed places from its own file, in a
  /// build folder as in an installed tree; where the system does not tell that file, from the
  /// current folder.
  static ResourceFolders OfProgram();
};

}  // namespace standin
