#pragma once

#include <QByteArray>
#include <QImageIOHandler>

/// How the camera was held, by the EXIF note of a "png" or "webp" file, whose decoders don't look
/// for it; None for other formats and without a note.
QImageIOHandler::Transformations NotedTurn(const QByteArray& format, const QByteArray& bytes);
