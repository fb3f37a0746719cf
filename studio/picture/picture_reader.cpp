#include "studio/picture/picture_reader.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "studio/base/studio_error.h"

namespace {

constexpr const char* kReader = "tesserae-picture-reader";
constexpr int kAskEvery = 50;  // ms
constexpr uint64_t kSeconds = 8;
constexpr uint64_t kPixelsPerSecond = 4'000'000;  // of the slowest decoders

ssize_t ReadSome(int descriptor, char* to, size_t size) {
  ssize_t count;
  do {
    count = read(descriptor, to, size);
  } while (count < 0 && errno == EINTR);
  return count;
}

QString FormatNames() {
  QStringList names;
  for (const PictureFormat& format : PictureFormats()) names << format.name;
  return names.join(", ");
}

}  // namespace

PictureReader::PictureReader(const PictureFile& file, bool converts, IsStopped stop)
    : name(file.Name()),
      isStopped(std::move(stop)),
      process(kReader, converts ? kConvert : "", file.Open().Get()) {
  Receive(reinterpret_cast<char*>(&header), sizeof header);
  const uint64_t size = uint64_t{header.width} * header.height;
  if (header.version != kPictureProtocol || size == 0 || size > kMostPicturePixels ||
      (header.channels != 3 && header.channels != 4) || header.profileSize > kMostProfileSize) {
    RefuseFile(kDamaged);
  }
  process.AllowSeconds(kSeconds + size / kPixelsPerSecond);
  profile.resize(header.profileSize);
  Receive(profile.data(), header.profileSize);
  row.resize(size_t{header.width} * header.channels);
  pixels.resize(header.width);
}

const QRgb* PictureReader::Next() {
  Receive(row.data(), row.size());
  const auto* from = reinterpret_cast<const uchar*>(row.data());
  if (header.channels == 3) {
    for (QRgb& pixel : pixels) pixel = qRgb(from[0], from[1], from[2]), from += 3;
  } else {
    for (QRgb& pixel : pixels) pixel = qRgba(from[0], from[1], from[2], from[3]), from += 4;
  }
  if (++rowsRead == header.height && ReadSome(process.Output(), row.data(), 1) == 0) {
    if (const int status = process.Wait(); status != kRead) RefuseFile(status);
  }
  return pixels.data();
}

void PictureReader::Receive(char* to, size_t size) {
  while (size > 0) {
    pollfd output{process.Output(), POLLIN, 0};
    const int ready = poll(&output, 1, kAskEvery);
    if (isStopped()) throw StudioError(kReadingStopped);
    if (ready <= 0) continue;
    const ssize_t count = ReadSome(process.Output(), to, size);
    if (count <= 0) RefuseFile(process.Wait());
    to += count;
    size -= size_t(count);
  }
}

void PictureReader::RefuseFile(int status) const {
  switch (status) {
    case kUnsupported:
      throw StudioError(
          "$$$/Studio/Picture/Unsupported=%1 is not a supported picture; supported are %2", name,
          FormatNames());
    case kDamaged:
      throw StudioError("$$$/Studio/Picture/Damaged=the picture %1 is damaged", name);
    case kTruncated:
      throw StudioError(
          "$$$/Studio/Picture/CutShort=the picture %1 is cut short: the file ends before the "
          "picture",
          name);
    case kTooLarge:
      throw StudioError(
          "$$$/Studio/Picture/TooLarge=the picture %1 is too large: reading it takes too much "
          "memory",
          name);
    case -SIGXCPU:
      throw StudioError("$$$/Studio/Picture/TooSlow=the picture %1 takes too long to read", name);
    default:
      throw StudioError("$$$/Studio/Picture/Undecodable=the picture %1 is damaged or too large",
                        name);
  }
}

const std::vector<PictureFormat>& PictureFormats() {
  static const auto formats = [] {
    ChildProcess process(kReader, kListFormats, -1);
    QByteArray text;
    char block[4096];
    while (const auto count = ReadSome(process.Output(), block, sizeof block)) {
      if (count < 0) break;
      text.append(block, count);
    }
    std::vector<PictureFormat> list;
    for (const QString& line : QString::fromLatin1(text).split('\n', Qt::SkipEmptyParts)) {
      const QStringList fields = line.split('\t');
      list.push_back({fields.value(0), fields.value(1).split(' '), fields.value(2).split(' ')});
    }
    return list;
  }();
  return formats;
}
