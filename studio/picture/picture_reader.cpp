#include "studio/picture/picture_reader.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <iterator>

#include "studio/base/studio_error.h"

namespace {

constexpr const char* kReader = "tesserae-picture-reader";
constexpr int kPollInterval = 50;  // ms
constexpr uint64_t kSeconds = 8;
constexpr uint64_t kPixelsPerSecond = 4'000'000;  // of the slowest decoders

constexpr struct {
  int status;
  const char* message;
} kRefusals[] = {
    {kUnsupported,
     "$$$/Studio/Picture/Unsupported=%1 is not a supported picture; supported are %2"},
    {kDamaged, "$$$/Studio/Picture/Damaged=the picture %1 is damaged"},
    {kTruncated,
     "$$$/Studio/Picture/CutShort=the picture %1 is incomplete: its file ends too early"},
    {kTooLarge,
     "$$$/Studio/Picture/TooLarge=the picture %1 is too large: reading it takes too much memory"},
    {kUnconfined,
     "$$$/Studio/Picture/Unconfined=the picture %1 was not read, because its decoder could not be "
     "sandboxed"},
    {-SIGXCPU, "$$$/Studio/Picture/TooSlow=the picture %1 takes too long to read"}};

ssize_t ReadSome(int descriptor, void* to, size_t size) {
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

PictureReader::PictureReader(const PictureFile& file, IsStopped stop)
    : name(file.Name()), isStopped(std::move(stop)), process(kReader, "", file.Open().Get()) {
  Receive(&header, sizeof header);
  const uint64_t size = uint64_t{header.width} * header.height;
  if (size == 0 || size > kMaxPicturePixels || (header.channels != 3 && header.channels != 4))
    Refuse(kDamaged);
  process.AllowSeconds(kSeconds + size / kPixelsPerSecond);
  row.resize(size_t{header.width} * header.channels);
  pixels.resize(header.width);
}

const QRgb* PictureReader::Next() {
  Receive(row.data(), row.size());
  const unsigned char* from = row.data();
  if (header.channels == 3) {
    for (QRgb& pixel : pixels) pixel = qRgb(from[0], from[1], from[2]), from += 3;
  } else {
    for (QRgb& pixel : pixels) pixel = qRgba(from[0], from[1], from[2], from[3]), from += 4;
  }
  if (++rowsRead == header.height && ReadSome(process.Output(), row.data(), 1) == 0) {
    if (const int status = process.Wait(); status != kRead) Refuse(status);
  }
  return pixels.data();
}

void PictureReader::Receive(void* to, size_t size) {
  for (auto* at = static_cast<unsigned char*>(to); size > 0;) {
    pollfd output{process.Output(), POLLIN, 0};
    const int ready = poll(&output, 1, kPollInterval);
    if (isStopped()) throw StudioError(kReadingStopped);
    if (ready <= 0) continue;
    const ssize_t count = ReadSome(process.Output(), at, size);
    if (count <= 0) Refuse(process.Wait());
    at += count;
    size -= size_t(count);
  }
}

void PictureReader::Refuse(int status) const {
  const auto* const found =
      std::find_if(std::begin(kRefusals), std::end(kRefusals),
                   [status](const auto& refusal) { return refusal.status == status; });
  if (found != std::end(kRefusals))
    throw StudioError(found->message, name, status == kUnsupported ? FormatNames() : QString());
  throw StudioError("$$$/Studio/Picture/Undecodable=the picture %1 is damaged or too large", name);
}

const std::vector<PictureFormat>& PictureFormats() {
  static const auto formats = [] {
    ChildProcess process(kReader, kListFormats, -1);
    QByteArray text;
    char block[4096];
    for (ssize_t size; (size = ReadSome(process.Output(), block, sizeof block)) > 0;)
      text.append(block, size);
    std::vector<PictureFormat> list;
    for (const QString& line : QString::fromLatin1(text).split('\n', Qt::SkipEmptyParts))
      list.push_back({line.section('\t', 0, 0), line.section('\t', 1, 1).split(' ')});
    return list;
  }();
  return formats;
}
