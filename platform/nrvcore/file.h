#pragma once

#include <cstddef>
#include <filesystem>
#include <limits>
#include <stdexcept>
#include <string>

#include "platform/nrvcore/export.h"

namespace nrvcore {

/// The error for a file that cannot be used. what() is "FILE:LINE: REASON" in UTF-8, with the
/// reason in the user's language.
class NRV_EXPORT FileError : public std::runtime_error {
 public:
  /// Lines count from 1. For line 0, the whole file, what() is "FILE: REASON".
  FileError(const std::filesystem::path& file, std::size_t line, const std::string& reason);
  FileError(const FileError& other);
  ~FileError() override;

  /// The reason alone. Belongs to the error.
  const char* Reason() const noexcept { return what() + reasonStart; }

 private:
  std::size_t reasonStart;
};

/// The text for an errno value: a translated one for common causes, otherwise the system's.
NRV_EXPORT std::string ReasonFor(int systemError);

enum class FileKind {
  kRegular,
  kAny,  // also pipes and devices; opening a pipe waits for its writer
};

/// Returns all bytes of the file. Throws FileError if it is of another kind, has more than `limit`
/// bytes or cannot be read.
NRV_EXPORT std::string ReadFile(const std::filesystem::path& file,
                                FileKind kind = FileKind::kRegular,
                                std::size_t limit = std::numeric_limits<std::size_t>::max());

}  // namespace nrvcore
