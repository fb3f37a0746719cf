#include "studio/picture_encoding.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImageWriter>
#include <QPainter>

#include "studio/studio_error.h"

namespace {

constexpr int kJpegQuality = 92;

QByteArray Encode(const QImage& picture, const char* format, int quality) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, format);
  writer.setQuality(quality);
  if (!writer.write(picture)) {
    throw StudioError("the picture below the tiles cannot be stored: " + writer.errorString());
  }
  return bytes;
}

}  // namespace

EncodedPicture EncodeForEmbedding(const QImage& picture) {
  if (picture.hasAlphaChannel()) return {"image/png", Encode(picture, "png", -1)};
  return {"image/jpeg", Encode(picture, "jpeg", kJpegQuality)};
}

QByteArray EncodeOnPaper(const QImage& picture) {
  QImage paper = picture.colorSpace().isValid()
                     ? picture.convertedToColorSpace(QColorSpace(QColorSpace::SRgb))
                     : picture;
  if (paper.hasAlphaChannel()) {
    QImage white(paper.size(), QImage::Format_RGB32);
    white.fill(Qt::white);
    QPainter(&white).drawImage(0, 0, paper);
    paper = white;
  }
  return Encode(paper, "jpeg", kJpegQuality);
}
