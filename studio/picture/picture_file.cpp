#include "studio/picture/picture_file.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <tuple>
#include <utility>

#include "studio/base/studio_error.h"

namespace {

auto IdentityOf(const struct stat& status) {
  return std::tuple(status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec,
                    status.st_mtim.tv_nsec);
}

}  // namespace

PictureFile::PictureFile(const QString& path) : PictureFile(path, SystemPath(path), Descriptor()) {}

PictureFile::PictureFile(const QString& name, std::filesystem::path path, Descriptor memory)
    : name(name), path(std::move(path)), memory(std::move(memory)) {
  OpenAny(status);
}

PictureFile PictureFile::OfBytes(QByteArrayView bytes, const QString& name) {
  Descriptor memory(memfd_create("picture", MFD_CLOEXEC));
  for (qsizetype at = 0; at < bytes.size();) {
    const auto written = write(memory.Get(), bytes.data() + at, size_t(bytes.size() - at));
    if (written <= 0) throw StudioError(kNoMemory);
    at += written;
  }
  const std::string path = "/proc/self/fd/" + std::to_string(memory.Get());
  return PictureFile(name, path, std::move(memory));
}

Descriptor PictureFile::Open() const {
  struct stat present {};
  Descriptor descriptor = OpenAny(present);
  if (IdentityOf(present) == IdentityOf(status)) return descriptor;
  throw StudioError("$$$/Studio/Picture/Changed=the picture %1 has changed since it was placed",
                    name);
}

Descriptor PictureFile::OpenAny(struct stat& found) const {
  // Without O_NONBLOCK opening a pipe waits for its writer.
  Descriptor descriptor(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (descriptor.Get() < 0 || fstat(descriptor.Get(), &found) != 0) Refuse(ReasonText(errno));
  if (!S_ISREG(found.st_mode)) Refuse(Text("$$$/nrvcore/File/NotRegular=it is not a regular file"));
  if (found.st_size == 0) Refuse(Text("$$$/Studio/Picture/Empty=the file is empty"));
  return descriptor;
}

void PictureFile::Refuse(const QString& reason) const {
  throw StudioError("$$$/Studio/Picture/Unreadable=the picture %1 cannot be read: %2", name,
                    reason);
}
