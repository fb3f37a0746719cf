#include "platform/nrvcore/file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <boost/core/noncopyable.hpp>
#include <cerrno>
#include <iterator>
#include <system_error>

#include "platform/nrvcore/localizer.h"

namespace nrvcore {

using config::Message;

namespace {

constexpr struct {
  int error;
  const char* key;
} kReasons[] = {
    {EACCES, "$$$/nrvcore/File/Access=you do not have permission for that"},
    {EPERM, "$$$/nrvcore/File/Access=you do not have permission for that"},
    {ENOSPC, "$$$/nrvcore/File/DiskFull=the disk is full"},
    {EDQUOT, "$$$/nrvcore/File/DiskFull=the disk is full"},
    {EROFS, "$$$/nrvcore/File/ReadOnly=the disk is write-protected"},
    {EIO, "$$$/nrvcore/File/Disk=the disk cannot be read or written"},
    {ENAMETOOLONG, "$$$/nrvcore/File/LongName=the name is too long"},
    {EFBIG, "$$$/nrvcore/File/TooLarge=the file is too large"},
    {ENOENT, "$$$/nrvcore/File/Absent=there is no such file or folder"},
};

std::string Place(const std::filesystem::path& file, std::size_t line) {
  return file.string() + (line ? ":" + std::to_string(line) : "") + ": ";
}

class OpenFile : boost::noncopyable {
 public:
  OpenFile(const std::filesystem::path& file, int flags)
      : descriptor(open(file.c_str(), flags | O_CLOEXEC)) {}
  ~OpenFile() { close(descriptor); }

  operator int() const { return descriptor; }

 private:
  const int descriptor;
};

}  // namespace

FileError::FileError(const std::filesystem::path& file, std::size_t line, const std::string& reason)
    : std::runtime_error(Place(file, line) + reason), reasonStart(Place(file, line).size()) {}

FileError::FileError(const FileError& other) = default;
FileError::~FileError() = default;

std::string ReasonFor(int systemError) {
  const auto* const known =
      std::find_if(std::begin(kReasons), std::end(kReasons),
                   [systemError](const auto& reason) { return reason.error == systemError; });
  return known != std::end(kReasons) ? Message(known->key)
                                     : std::generic_category().message(systemError);
}

std::string ReadFile(const std::filesystem::path& file, FileKind kind, std::size_t limit) {
  // With O_NONBLOCK, opening a pipe does not wait for its writer.
  const OpenFile descriptor(file, kind == FileKind::kRegular ? O_RDONLY | O_NONBLOCK : O_RDONLY);
  if (descriptor < 0) throw FileError(file, 0, ReasonFor(errno));
  struct stat status {};
  if (fstat(descriptor, &status) != 0) throw FileError(file, 0, ReasonFor(errno));
  if (kind == FileKind::kRegular && !S_ISREG(status.st_mode))
    throw FileError(file, 0, Message("$$$/nrvcore/File/NotRegular=it is not a regular file"));

  std::string content;
  content.reserve(std::min<std::size_t>(status.st_size, limit));
  char block[1 << 16];
  while (const ssize_t size = read(descriptor, block, sizeof block)) {
    if (size < 0 && errno == EINTR) continue;
    if (size < 0) throw FileError(file, 0, ReasonFor(errno));
    content.append(block, static_cast<std::size_t>(size));
    if (content.size() > limit)
      throw FileError(file, 0,
                      Message("$$$/nrvcore/File/AboveLimit=the file is larger than %1 bytes",
                              {std::to_string(limit)}));
  }
  return content;
}

}  // namespace nrvcore
