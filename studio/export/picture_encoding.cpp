#include "studio/export/picture_encoding.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPainter>

#include "studio/base/studio_error.h"

namespace {

constexpr int kJpegQuality = 92;

QByteArray Encode(const QImage& picture, const char* format, int quality) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, format);
  writer.setQuality(quality);
  if (!writer.write(picture)) {
    throw StudioError("$$$/Studio/Export/NotBelow=the picture below the tiles cannot be stored");
  }
  return bytes;
}

}  // namespace

EncodedPicture EncodeForEmbedding(const QImage& picture) {
  if (picture.hasAlphaChannel()) return {"image/png", Encode(picture, "png", -1)};
  return {"image/jpeg", Encode(picture, "jpeg", kJpegQuality)};
}

QByteArray EncodeOnPaper(const QImage& picture) {
  if (!picture.hasAlphaChannel()) return Encode(picture, "jpeg", kJpegQuality);
  QImage paper(picture.size(), QImage::Format_RGB32);
  paper.fill(Qt::white);
  QPainter(&paper).drawImage(0, 0, picture);
  return Encode(paper, "jpeg", kJpegQuality);
}
