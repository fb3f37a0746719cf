#include "studio/base/studio_error.h"

#include <cerrno>
#include <new>

namespace {

constexpr struct {
  int code;  // the system's
  const char* key;
} kReasons[] = {
    {EACCES, "$$$/Studio/Reason/Access=you do not have permission for that"},
    {EPERM, "$$$/Studio/Reason/Access=you do not have permission for that"},
    {ENOSPC, "$$$/Studio/Reason/DiskFull=the disk is full"},
    {EDQUOT, "$$$/Studio/Reason/DiskFull=the disk is full"},
    {EROFS, "$$$/Studio/Reason/ReadOnly=the disk is write-protected"},
    {EIO, "$$$/Studio/Reason/Disk=the disk cannot be read or written"},
    {ENAMETOOLONG, "$$$/Studio/Reason/LongName=the name is too long"},
    {EFBIG, "$$$/Studio/Reason/LargeFile=the file is too large"},
    {ENOENT, "$$$/Studio/Reason/Gone=there is no such file or folder"},
};

}  // namespace

QString ReasonText(const std::exception& error) {
  if (dynamic_cast<const std::bad_alloc*>(&error)) return Text(kNoMemory);
  return FileName(error.what());
}

QString ReasonText(int systemError) {
  for (const auto& [code, key] : kReasons) {
    if (code == systemError) return Text(key);
  }
  return qt_error_string(systemError);
}

QString Sentence(QString reason) {
  if (reason.isEmpty()) return reason;
  reason[0] = reason[0].toUpper();
  const bool isEnded = reason.endsWith('.') || reason.endsWith(u'。');
  return isEnded ? reason : Text("$$$/Studio/Box/Sentence=%1.", reason);
}
