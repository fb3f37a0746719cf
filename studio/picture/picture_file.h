#pragma once

#include <QByteArrayView>
#include <QString>

#include "studio/base/child_process.h"

/// The file of a picture, which can be read several times and is the same each time.
class PictureFile {
 public:
  /// Throws StudioError unless the path is a regular file that can be opened and holds something.
  explicit PictureFile(const QString& path);

  /// The file that a descriptor stands for, which stays the caller's. `name` is for messages.
  PictureFile(int descriptor, const QString& name);

  /// Bytes in memory, which are copied. Throws StudioError when there is no memory.
  static PictureFile OfBytes(QByteArrayView bytes, const QString& name);

  const QString& Name() const { return name; }

  /// A descriptor of its own at the file's start. Throws StudioError, also when the file is not the
  /// same any more.
  Descriptor Open() const;

 private:
  PictureFile(Descriptor kept, QString name);

  struct Identity {
    uint64_t device, file;
    int64_t size, seconds, nanoseconds;
    bool operator==(const Identity&) const = default;
  };
  Descriptor OpenAny(Identity& identity) const;

  QString name;
  Descriptor kept;  // of a file without a path; otherwise none
  Identity identity;
};
