#pragma once

#include <QByteArray>
#include <QRgb>
#include <QStringList>
#include <functional>
#include <optional>
#include <vector>

#include "studio/base/child_process.h"
#include "studio/picture/picture_file.h"
#include "studio/reader/picture_protocol.h"

/// Asked many times a second during work that takes long; the work ends soon after it returns true.
using IsStopped = std::function<bool()>;

inline constexpr const char* kReadingStopped = "$$$/Studio/Picture/Stopped=the reading was stopped";

/// One pass over a picture's rows, from top to bottom.
class PictureRows {
 public:
  virtual ~PictureRows() = default;

  /// The next row, valid until the next call; with alpha not premultiplied, otherwise opaque.
  /// Called at most once a row. Throws StudioError, for the last row also when the file turns out
  /// to be damaged.
  virtual const QRgb* Next() = 0;
};

/// Reads a file in a process of its own, tesserae-picture-reader, which lives as long as this.
class PictureReader final : public PictureRows {
 public:
  /// Reads the header. With `converts` the rows are sRGB, otherwise in the colours of `Profile()`.
  /// Throws StudioError when the file is no supported picture, damaged, too large, or `isStopped`.
  PictureReader(const PictureFile& file, bool converts, IsStopped isStopped);

  const PictureHeader& Header() const { return header; }
  const QByteArray& Profile() const { return profile; }

  /// Asked from now on.
  void StopWhen(IsStopped newIsStopped) { isStopped = std::move(newIsStopped); }

  const QRgb* Next() override;

 private:
  void Receive(char* to, size_t size);
  [[noreturn]] void RefuseFile(int status) const;  // the exit status, as ChildProcess has it

  const QString name;
  IsStopped isStopped;
  ChildProcess process;
  PictureHeader header{};
  QByteArray profile;
  uint32_t rowsRead = 0;
  std::vector<char> row;
  std::vector<QRgb> pixels;
};

struct PictureFormat {
  QString name;
  QStringList endings;  // without a dot, in small letters
  QStringList mimeTypes;
};

/// The formats that can be read; asks the reader the first time. Throws StudioError when the reader
/// cannot be started.
const std::vector<PictureFormat>& PictureFormats();
