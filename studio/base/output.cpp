#include "studio/base/output.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QFileDevice>
#include <QFileInfo>
#include <cerrno>

#include "studio/base/studio_error.h"

namespace {

constexpr int kMostLinks = 64;  // from one to the next, in case they lead in a circle

/// The same for all ways to write a path to one file, there or not yet. A file that is there may
/// have other names, in capitals for one, where the disk doesn't tell them from small letters.
QString Identity(const QString& path) {
  struct stat file;
  if (stat(QFile::encodeName(path), &file) == 0) {
    return QString("%1:%2").arg(file.st_dev).arg(file.st_ino);
  }
  QFileInfo info(path);
  for (int i = 0; i < kMostLinks && info.isSymLink(); ++i) info.setFile(info.symLinkTarget());
  return QFileInfo(info.absolutePath()).canonicalFilePath() + "/" + info.fileName();
}

[[noreturn]] void Refuse(const QString& path, const QString& reason) {
  throw StudioError("$$$/Studio/Write/Failed=cannot write %1: %2", path, reason);
}

}  // namespace

void OutputSet::Protect(const QString& path) {
  taken << Identity(path);
}

QIODevice& OutputSet::Add(const QString& path) {
  const QFileInfo info(path);
  if (info.isDir()) Refuse(path, Text("$$$/Studio/Write/Folder=it is a folder"));
  if (info.exists() && !info.isFile())
    Refuse(path, Text("$$$/Studio/Write/NoFile=it is no ordinary file"));
  if (info.exists() && access(QFile::encodeName(path), W_OK) != 0) Refuse(path, ReasonText(errno));
  if (!QFileInfo(info.absolutePath()).isDir()) {
    Refuse(path, Text("$$$/Studio/Write/NoFolder=there is no folder %1", info.absolutePath()));
  }
  const QString identity = Identity(path);
  if (taken.contains(identity)) {
    Refuse(path, Text("$$$/Studio/Write/InUse=the file is already used for something else, such as "
                      "the picture"));
  }

  auto file = std::make_unique<QSaveFile>(path);
  if (!file->open(QIODevice::WriteOnly)) Refuse(path, ReasonText(*file));
  taken << identity;
  files.push_back(std::move(file));
  return *files.back();
}

void OutputSet::Commit() {
  for (const auto& file : files) {
    if (!file->flush()) Refuse(file->fileName(), ReasonText(*file));
  }
  for (const auto& file : files) {
    if (!file->commit()) Refuse(file->fileName(), ReasonText(*file));
  }
  files.clear();
}

void WriteAll(QIODevice& device, std::string_view bytes) {
  if (device.write(bytes.data(), qint64(bytes.size())) == qint64(bytes.size())) return;
  const auto* file = qobject_cast<const QFileDevice*>(&device);
  Refuse(file ? file->fileName() : Text("$$$/Studio/Write/TheMosaic=the mosaic"),
         ReasonText(device));
}

TextWriter::TextWriter(QIODevice& device) : device(device) {
  buffer.reserve(2 * kPieceSize);
}

void TextWriter::Flush() {
  WriteAll(device, buffer);
  buffer.clear();
}
