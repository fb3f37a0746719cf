#include "studio/output_set.h"

#include <QFileInfo>

#include "studio/studio_error.h"

namespace {

/// The same for all ways to write a path to one file, there or not yet.
QString Identity(const QString& path) {
  const QFileInfo info(path);
  if (info.exists()) return info.canonicalFilePath();
  return QFileInfo(info.absolutePath()).canonicalFilePath() + "/" + info.fileName();
}

[[noreturn]] void Refuse(const QString& path, const QString& reason) {
  throw StudioError("cannot write " + path + ": " + reason);
}

}  // namespace

void OutputSet::Protect(const QString& path) {
  taken << Identity(path);
}

QIODevice& OutputSet::Add(const QString& path) {
  const QFileInfo info(path);
  if (info.isDir()) Refuse(path, "it is a folder");
  if (info.exists() && !info.isFile()) Refuse(path, "it is no ordinary file");
  if (!QFileInfo(info.absolutePath()).isDir()) {
    Refuse(path, "there is no folder " + info.absolutePath());
  }
  const QString identity = Identity(path);
  if (taken.contains(identity)) Refuse(path, "this run uses the file for something else");

  auto file = std::make_unique<QSaveFile>(path);
  if (!file->open(QIODevice::WriteOnly)) Refuse(path, file->errorString());
  taken << identity;
  files.push_back(std::move(file));
  return *files.back();
}

void OutputSet::Commit() {
  for (const auto& file : files) {
    if (!file->flush()) Refuse(file->fileName(), file->errorString());
  }
  for (const auto& file : files) {
    if (!file->commit()) Refuse(file->fileName(), file->errorString());
  }
  files.clear();
}
