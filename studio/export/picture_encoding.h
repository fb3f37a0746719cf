#pragma once

#include <QByteArray>
#include <QImage>

/// A picture as the bytes of a file of this format ("png", "jpeg"), in memory, since the encoders
/// don't say why a device refuses. The quality is Qt's, -1 the format's own. Throws StudioError
/// when the picture cannot be encoded.
QByteArray EncodePicture(const QImage& picture, const char* format, int quality = -1);

/// For a drawing that holds the picture itself.
constexpr int kJpegQuality = 92;
