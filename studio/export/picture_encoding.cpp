#include "studio/export/picture_encoding.h"

#include <QBuffer>
#include <QImageWriter>

#include "studio/base/studio_error.h"

QByteArray EncodePicture(const QImage& picture, const char* format, int quality) {
  QBuffer buffer;
  QImageWriter writer(&buffer, format);
  writer.setQuality(quality);
  if (!writer.write(picture)) {
    throw StudioError("$$$/Studio/Export/NotEncoded=a picture cannot be encoded as %1",
                      QString(format).toUpper());
  }
  return buffer.data();
}
