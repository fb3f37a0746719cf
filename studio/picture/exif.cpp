#include "studio/picture/exif.h"

#include <libexif/exif-data.h>

#include <QtEndian>
#include <memory>

namespace {

/// How the chunks of a file stand one behind another.
struct ChunkFormat {
  const char* format;
  const char* exifType;
  qsizetype firstChunk;
  qsizetype typeOffset;  // in a chunk
  qsizetype sizeOffset;
  quint32 (*size)(const void* bytes);
  qsizetype checksumSize;
  qsizetype alignment;
};

constexpr qsizetype kChunkHeader = 8;
constexpr ChunkFormat kFormats[] = {{"png", "eXIf", 8, 4, 0, qFromBigEndian<quint32>, 4, 1},
                                    {"webp", "EXIF", 12, 0, 4, qFromLittleEndian<quint32>, 0, 2}};

QByteArray FindExif(const ChunkFormat& format, const QByteArray& bytes) {
  for (qsizetype at = format.firstChunk; at + kChunkHeader <= bytes.size();) {
    const qsizetype size = format.size(bytes.constData() + at + format.sizeOffset);
    if (bytes.mid(at + format.typeOffset, 4) == format.exifType)
      return bytes.mid(at + kChunkHeader, size);
    const qsizetype padding = (format.alignment - size % format.alignment) % format.alignment;
    at += kChunkHeader + size + format.checksumSize + padding;
  }
  return {};
}

/// 1 to 8, as EXIF numbers the ways to hold a camera; other numbers are damage.
int Orientation(QByteArray exif) {
  const QByteArray header("Exif\0\0", 6);
  if (!exif.startsWith(header)) exif.prepend(header);
  const auto* const start = reinterpret_cast<const uchar*>(exif.constData());
  const std::unique_ptr<ExifData, decltype(&exif_data_unref)> data(
      exif_data_new_from_data(start, unsigned(exif.size())), exif_data_unref);
  const ExifEntry* const entry =
      data ? exif_content_get_entry(data->ifd[EXIF_IFD_0], EXIF_TAG_ORIENTATION) : nullptr;
  if (!entry || entry->format != EXIF_FORMAT_SHORT || entry->size < sizeof(ExifShort)) return 1;
  return exif_get_short(entry->data, exif_data_get_byte_order(data.get()));
}

}  // namespace

QImageIOHandler::Transformations NotedTurn(const QByteArray& format, const QByteArray& bytes) {
  using Io = QImageIOHandler;
  constexpr Io::Transformation kTurns[] = {Io::TransformationNone,
                                           Io::TransformationMirror,
                                           Io::TransformationRotate180,
                                           Io::TransformationFlip,
                                           Io::TransformationFlipAndRotate90,
                                           Io::TransformationRotate90,
                                           Io::TransformationMirrorAndRotate90,
                                           Io::TransformationRotate270};
  for (const ChunkFormat& known : kFormats) {
    if (format != known.format) continue;
    const QByteArray exif = FindExif(known, bytes);
    const int orientation = exif.isEmpty() ? 1 : Orientation(exif);
    if (orientation >= 1 && orientation <= 8) return kTurns[orientation - 1];
  }
  return Io::TransformationNone;
}
