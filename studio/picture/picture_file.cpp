#include "studio/picture/picture_file.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "studio/base/studio_error.h"

PictureFile::PictureFile(const QString& path) : PictureFile(Descriptor(), path) {}

PictureFile::PictureFile(int descriptor, const QString& name)
    : PictureFile(Descriptor(fcntl(descriptor, F_DUPFD_CLOEXEC, 0)), name) {}

PictureFile::PictureFile(Descriptor keptDescriptor, QString nameForMessages)
    : name(std::move(nameForMessages)), kept(std::move(keptDescriptor)) {
  OpenAny(identity);
}

PictureFile PictureFile::OfBytes(QByteArrayView bytes, const QString& name) {
  Descriptor memory(memfd_create("picture", MFD_CLOEXEC));
  for (qsizetype at = 0; at < bytes.size();) {
    const auto written = write(memory.Get(), bytes.data() + at, size_t(bytes.size() - at));
    if (written <= 0) throw StudioError(kNoMemory);
    at += written;
  }
  return PictureFile(std::move(memory), name);
}

Descriptor PictureFile::Open() const {
  Identity present;
  Descriptor descriptor = OpenAny(present);
  if (present == identity) return descriptor;
  throw StudioError("$$$/Studio/Picture/Changed=the picture %1 has changed since it was placed",
                    name);
}

Descriptor PictureFile::OpenAny(Identity& found) const {
  const std::filesystem::path path =
      kept.Get() < 0 ? SystemPath(name)
                     : std::filesystem::path("/proc/self/fd/" + std::to_string(kept.Get()));
  // A pipe without a writer would block.
  Descriptor descriptor(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  const int error = errno;
  struct stat status {};
  const bool isThere = descriptor.Get() >= 0 ? fstat(descriptor.Get(), &status) == 0
                                             : stat(path.c_str(), &status) == 0;
  if (!isThere && (error == ENOENT || error == ENOTDIR))
    throw StudioError("$$$/Studio/Picture/None=there is no picture %1", name);
  if (isThere && !S_ISREG(status.st_mode))
    throw StudioError("$$$/Studio/Picture/NoFile=%1 is not a file", name);
  if (descriptor.Get() < 0) {
    throw StudioError("$$$/Studio/Picture/Unreadable=the picture %1 cannot be read: %2", name,
                      ReasonText(error));
  }
  if (status.st_size == 0)
    throw StudioError("$$$/Studio/Picture/Empty=the picture %1 is empty", name);
  found = {status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec,
           status.st_mtim.tv_nsec};
  return descriptor;
}
