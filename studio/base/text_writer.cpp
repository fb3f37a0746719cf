#include "studio/base/text_writer.h"

#include <QFileDevice>

#include "studio/base/studio_error.h"

TextWriter::TextWriter(QIODevice& device) : device(device) {
  buffer.reserve(2 * kPieceSize);
}

void TextWriter::Flush() {
  WriteAll(device, buffer);
  buffer.clear();
}

void WriteAll(QIODevice& device, std::string_view bytes) {
  if (device.write(bytes.data(), qint64(bytes.size())) == qint64(bytes.size())) return;
  const auto* file = qobject_cast<const QFileDevice*>(&device);
  throw StudioError("$$$/Studio/Write/Failed=cannot write %1: %2",
                    file ? file->fileName() : Text("$$$/Studio/Write/TheMosaic=the mosaic"),
                    ReasonText(device));
}
