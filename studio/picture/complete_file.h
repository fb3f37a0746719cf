#pragma once

#include <QByteArray>

/// Whether a picture file is there to its end. Some decoders quietly fill up what is missing, so
/// for their formats ("jpeg", "png", "bmp", "gif") the file's own structure is asked; the others
/// refuse a short file themselves and count as complete here.
bool IsCompleteFile(const QByteArray& format, const QByteArray& bytes);
