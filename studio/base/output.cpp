#include "studio/base/output.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QRandomGenerator>
#include <algorithm>
#include <cerrno>
#include <cstdio>

#include "studio/base/file_name.h"
#include "studio/base/studio_error.h"

namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 64;  // the links may form a cycle

/// The target of a path's symbolic links, which need not exist.
fs::path Resolved(fs::path path) {
  std::error_code error;
  for (int i = 0; i < kMostLinks && is_symlink(path, error); ++i) {
    path = path.parent_path() / read_symlink(path, error);
  }
  return path;
}

fs::path FolderOf(const fs::path& place) {
  return place.has_parent_path() ? place.parent_path() : ".";
}

/// Equal for all names of one existing file: hard links, and names that differ in case on a file
/// system that ignores case.
QString Identity(const struct stat& file) {
  return QString("%1:%2").arg(file.st_dev).arg(file.st_ino);
}

/// Equal for all paths to one file, which need not exist.
QString Identity(const fs::path& place) {
  struct stat status {};
  if (stat(place.c_str(), &status) == 0) return Identity(status);
  std::error_code error;
  return FileName((canonical(FolderOf(place), error) / place.filename()).c_str());
}

[[noreturn]] void Refuse(const QString& name, const QString& reason) {
  throw StudioError("$$$/Studio/Write/Failed=cannot write %1: %2", name, reason);
}

[[noreturn]] void RefuseInUse(const QString& name) {
  Refuse(name, Text("$$$/Studio/Write/InUse=it is also an input or another output of this run"));
}

/// In a sticky folder only the owners of the file and of the folder, and root, may rename or remove
/// a file, even if its mode lets others write it.
bool IsForeignInStickyFolder(const fs::path& place, const struct stat& file) {
  struct stat folder {};
  if (stat(FolderOf(place).c_str(), &folder) != 0 || !(folder.st_mode & S_ISVTX)) return false;
  const uid_t user = geteuid();
  return user != 0 && user != file.st_uid && user != folder.st_uid;
}

/// An unused name. It does not contain the output's name, which may have the greatest length
/// already.
fs::path UnusedName(const fs::path& folder) {
  const auto number = QRandomGenerator::system()->generate64();
  return folder / (".tesserae-" + QString::number(number, 36).toStdString());
}

}  // namespace

OutputSet::~OutputSet() {
  for (const auto& output : outputs) {
    output->device.close();
    unlink(output->draft.c_str());
  }
}

void OutputSet::Protect(const QString& name) {
  taken << Identity(Resolved(SystemPath(name)));
}

QIODevice& OutputSet::Add(const QString& name) {
  auto output = std::make_unique<Output>();
  const fs::path place = output->place = Resolved(SystemPath(name));
  struct stat status {};
  const bool isThere = stat(place.c_str(), &status) == 0;
  const int error = errno;
  if (isThere) {
    if (S_ISDIR(status.st_mode)) Refuse(name, Text("$$$/Studio/Write/Folder=it is a folder"));
    if (!S_ISREG(status.st_mode))
      Refuse(name, Text("$$$/nrvcore/File/NotRegular=it is not a regular file"));
    if (access(place.c_str(), W_OK) != 0) Refuse(name, ReasonText(errno));
    if (IsForeignInStickyFolder(place, status)) Refuse(name, ReasonText(EPERM));
  }
  std::error_code unknown;
  if (!is_directory(FolderOf(place), unknown)) {
    const QString folder = FileName(absolute(FolderOf(place)).lexically_normal().c_str());
    Refuse(name, Text("$$$/Studio/Write/NoFolder=there is no folder %1", folder));
  }
  if (!isThere && error != ENOENT) Refuse(name, ReasonText(error));
  const QString identity = Identity(place);
  if (taken.contains(identity)) RefuseInUse(name);

  output->draft = UnusedName(FolderOf(place));
  const int descriptor =
      open(output->draft.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode_t(0666));
  if (descriptor < 0) Refuse(name, ReasonText(errno));
  if (isThere) fchmod(descriptor, status.st_mode & 07777);
  output->device.setObjectName(name);
  // Unbuffered, so that errno has the reason when a write fails; Qt's error text may not.
  output->device.open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered,
                      QFileDevice::AutoCloseHandle);
  taken << identity;
  outputs.push_back(std::move(output));
  return outputs.back()->device;
}

void OutputSet::Commit() {
  for (const auto& output : outputs) {
    QFile& device = output->device;
    if (fsync(device.handle()) != 0 && errno != EINVAL)
      Refuse(device.objectName(), ReasonText(errno));
  }
  placed.reserve(outputs.size());  // no allocation may fail between the steps of TakePlace
  try {
    for (const auto& output : outputs) TakePlace(*output);
  } catch (...) {
    while (!placed.empty()) PutBack(*placed.back()), placed.pop_back();
    throw;
  }
  for (const Output* output : placed) unlink(output->former.c_str());
  placed.clear();
  outputs.clear();
}

/// Keeps the former file under another name until all outputs are placed.
void OutputSet::TakePlace(Output& output) {
  struct stat status {};
  if (lstat(output.place.c_str(), &status) == 0) {
    // On a file system that ignores case, two names can refer to one file.
    const QString identity = Identity(status);
    for (const Output* other : placed) {
      if (identity == Identity(other->place)) RefuseInUse(output.device.objectName());
    }
    if (!S_ISREG(status.st_mode))
      Refuse(output.device.objectName(),
             Text("$$$/nrvcore/File/NotRegular=it is not a regular file"));
    // The link created below could not be removed.
    if (IsForeignInStickyFolder(output.place, status))
      Refuse(output.device.objectName(), ReasonText(EPERM));
    output.former = UnusedName(FolderOf(output.place));
    // Some file systems do not support hard links.
    if (link(output.place.c_str(), output.former.c_str()) != 0 &&
        rename(output.place.c_str(), output.former.c_str()) != 0) {
      Refuse(output.device.objectName(), ReasonText(errno));
    }
  }
  placed.push_back(&output);
  if (rename(output.draft.c_str(), output.place.c_str()) == 0) return;
  const int error = errno;
  if (output.former.empty()) placed.pop_back();  // PutBack would remove somebody else's new file
  Refuse(output.device.objectName(), ReasonText(error));
}

void OutputSet::PutBack(Output& output) {
  if (output.former.empty()) {
    unlink(output.place.c_str());
  } else {
    rename(output.former.c_str(), output.place.c_str());
    unlink(output.former.c_str());  // rename does nothing if both are links to one file
  }
}

void WriteAll(QIODevice& device, QByteArrayView bytes) {
  if (device.write(bytes.data(), bytes.size()) == bytes.size()) return;
  Refuse(device.objectName(), ReasonText(errno));
}
