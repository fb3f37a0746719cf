#pragma once

#include <sys/stat.h>

#include <QByteArrayView>
#include <QString>
#include <filesystem>

#include "studio/base/child_process.h"

/// The file of a picture, or a picture that is embedded in a document. It is opened for each pass
/// over the picture. Can be used on any thread.
class PictureFile {
 public:
  /// Throws StudioError unless the path is a regular file that can be read and is not empty.
  explicit PictureFile(const QString& path);

  /// Copies the bytes into a memory file. `name` appears in messages. Throws StudioError when there
  /// is not enough memory.
  static PictureFile OfBytes(QByteArrayView bytes, const QString& name);

  const QString& Name() const { return name; }

  /// Opens the file at its start. Throws StudioError, also when the file has been replaced or
  /// changed since this object was made.
  Descriptor Open() const;

 private:
  PictureFile(const QString& name, std::filesystem::path path, Descriptor memory);
  Descriptor OpenAny(struct stat& found) const;
  [[noreturn]] void Refuse(const QString& reason) const;

  QString name;
  std::filesystem::path path;
  Descriptor memory;  // the memory file, or none
  struct stat status {};
};
