#pragma once

#include <QByteArray>
#include <QImage>

/// A picture as the bytes of a file.
struct EncodedPicture {
  const char* mimeType;
  QByteArray bytes;
};

/// For a drawing that holds the picture itself: JPEG, or PNG when some of it is transparent.
/// Throws StudioError when it cannot be encoded.
EncodedPicture EncodeForEmbedding(const QImage& picture);

/// JPEG, with white behind what is transparent. Throws StudioError when it cannot be encoded.
QByteArray EncodeOnPaper(const QImage& picture);
