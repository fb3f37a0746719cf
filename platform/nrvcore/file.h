#pragma once

#include <cstddef>
#include <filesystem>
#include <limits>
#include <stdexcept>
#include <string>

#include "platform/nrvcore/export.h"

namespace nrvcore {

/// A file that cannot be used. what() is "FILE:LINE: REASON" in UTF-8; reasons are in the user's
/// language.
class NRV_EXPORT FileError : public std::runtime_error {
 public:
  /// Lines count from 1. Line 0 stands for the whole file; what() then has no line.
  FileError(const std::filesystem::path& file, std::size_t line, const std::string& reason);
  FileError(const FileError& other);
  ~FileError() override;

  /// The end of what().
  const char* Reason() const noexcept { return what() + reasonStart; }

 private:
  std::size_t reasonStart;
};

/// Why a system call failed, by its errno: a text of ours for the usual causes, otherwise the
/// system's.
NRV_EXPORT std::string ReasonFor(int systemError);

enum class FileKind {
  kRegular,
  kAny,  // pipes and devices too; reading a pipe waits for its writer
};

/// Returns all bytes of the file. Throws FileError when it is of another kind, holds more than
/// `limit` bytes or cannot be read.
NRV_EXPORT std::string ReadFile(const std::filesystem::path& file,
                                FileKind kind = FileKind::kRegular,
                                std::size_t limit = std::numeric_limits<std::size_t>::max());

}  // namespace nrvcore
