#pragma once

#include <QRgb>
#include <QStringList>
#include <functional>
#include <vector>

#include "studio/base/child_process.h"
#include "studio/picture/picture_file.h"
#include "studio/reader/picture_protocol.h"

/// Polled several times a second during long work, which stops when it returns true.
using IsStopped = std::function<bool()>;

inline constexpr const char* kReadingStopped = "$$$/Studio/Picture/Stopped=reading was cancelled";

/// One pass over a picture's file by a process of its own, tesserae-picture-reader, which is killed
/// with this object. Used by one thread at a time.
class PictureReader {
 public:
  /// Starts the process and waits for the header. Throws StudioError when the file is not a
  /// supported picture, is damaged or too large, or when `isStopped` returns true.
  PictureReader(const PictureFile& file, IsStopped isStopped);

  const PictureHeader& Header() const { return header; }

  /// Replaces the function that the constructor received.
  void StopWhen(IsStopped newIsStopped) { isStopped = std::move(newIsStopped); }

  /// The next row, valid until the next call; `height` rows in all. Throws StudioError like the
  /// constructor; damage can show as late as the last row.
  const QRgb* Next();

 private:
  void Receive(void* to, size_t size);
  [[noreturn]] void Refuse(int status) const;  // a PictureOutcome, or the negative of a signal

  const QString name;
  IsStopped isStopped;
  ChildProcess process;
  PictureHeader header{};
  uint32_t rowsRead = 0;
  std::vector<unsigned char> row;
  std::vector<QRgb> pixels;
};

struct PictureFormat {
  QString name;
  QStringList endings;  // in lower case, without a dot
};

/// The formats that can be read. The first call asks the reader for them. Throws StudioError when
/// the reader cannot be started. Can be called on any thread.
const std::vector<PictureFormat>& PictureFormats();
