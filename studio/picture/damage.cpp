#include "studio/picture/damage.h"

#include <QtEndian>
#include <algorithm>
#include <atomic>
#include <cstring>

namespace {

struct JpegStructure {
  bool isComplete = false;
  int scans = 0;
};

/// Walks from marker to marker, over segments by their length and over scans by their content,
/// since an embedded preview has an end marker of its own.
JpegStructure WalkJpeg(const QByteArray& bytes) {
  JpegStructure found;
  const auto* at = reinterpret_cast<const uchar*>(bytes.constData());
  const uchar* const end = at + bytes.size();
  while ((at = static_cast<const uchar*>(std::memchr(at, 0xFF, size_t(end - at))))) {
    while (at < end && *at == 0xFF) ++at;
    if (at == end) return found;
    const int marker = *at++;
    if (marker == 0xD9) {
      found.isComplete = true;
      return found;
    }
    if (marker == 0xDA) ++found.scans;
    const bool standsAlone = marker == 0 || marker == 1 || (marker >= 0xD0 && marker <= 0xD8);
    if (standsAlone) continue;
    if (end - at < 2) return found;
    const int length = qFromBigEndian<quint16>(at);
    if (length > end - at) return found;
    at += length;
  }
  return found;
}

/// Walks from chunk to chunk; each has a length, a type, its content and a checksum.
bool IsCompletePng(const QByteArray& bytes) {
  constexpr qint64 kSignature = 8;
  constexpr qint64 kFrame = 12;
  for (qint64 at = kSignature; at + kFrame <= bytes.size();) {
    const qint64 end = at + kFrame + qFromBigEndian<quint32>(bytes.constData() + at);
    if (std::memcmp(bytes.constData() + at + 4, "IEND", 4) == 0) return end <= bytes.size();
    at = end;
  }
  return false;
}

bool IsCompleteBmp(const QByteArray& bytes) {
  constexpr int kSizeOffset = 2;
  if (bytes.size() < kSizeOffset + 4) return false;
  return qFromLittleEndian<quint32>(bytes.constData() + kSizeOffset) <= quint64(bytes.size());
}

/// Walks from block to block, over each one's colours and pieces, to the block that ends the file.
bool IsCompleteGif(const QByteArray& bytes) {
  constexpr qsizetype kHeader = 13;
  constexpr qsizetype kHeaderFlags = 10;
  constexpr qsizetype kImageFrame = 10;
  constexpr qsizetype kImageFlags = 9;
  const auto byte = [&](qsizetype at) { return at < bytes.size() ? uchar(bytes[at]) : 0; };
  const auto colorBytes = [](int flags) { return flags & 0x80 ? 6 << (flags & 7) : 0; };

  qsizetype at = kHeader + colorBytes(byte(kHeaderFlags));
  while (at < bytes.size() && byte(at) != ';') {
    const bool isImage = byte(at) == ',';
    at += isImage ? kImageFrame + colorBytes(byte(at + kImageFlags)) + 1 : 2;
    while (const int piece = byte(at)) at += 1 + piece;
    ++at;
  }
  return byte(at) == ';';
}

constexpr struct {
  const char* format;
  bool (*isComplete)(const QByteArray&);
} kChecks[] = {{"jpeg", [](const QByteArray& bytes) { return WalkJpeg(bytes).isComplete; }},
               {"png", IsCompletePng},
               {"bmp", IsCompleteBmp},
               {"gif", IsCompleteGif}};

// What the decoders' reports of lost parts contain.
constexpr const char* kDamage[] = {"premature end", "Huffman", "instead of RST",
                                   "Invalid progressive"};

thread_local DecoderMessages* current = nullptr;
std::atomic<QtMessageHandler> previous = nullptr;  // takes what nobody collects

}  // namespace

bool IsCompleteFile(const QByteArray& format, const QByteArray& bytes) {
  for (const auto& check : kChecks) {
    if (format == check.format) return check.isComplete(bytes);
  }
  return true;
}

bool HasAbsurdScans(const QByteArray& jpeg, QSize size) {
  constexpr int kUsualScans = 20;
  constexpr qint64 kMostPixels = 500'000'000;  // over all scans
  const int scans = WalkJpeg(jpeg).scans;
  return scans > kUsualScans && qint64(size.width()) * size.height() > kMostPixels / scans;
}

/// The handler stays for good, since another thread may be in it or collect messages of its own.
DecoderMessages::DecoderMessages() {
  current = this;
  const QtMessageHandler former = qInstallMessageHandler(Collect);
  if (former != Collect) previous = former;
}

DecoderMessages::~DecoderMessages() {
  current = nullptr;
}

void DecoderMessages::Collect(QtMsgType type, const QMessageLogContext& context,
                              const QString& text) {
  if (current) {
    current->messages << text;
  } else if (const QtMessageHandler handler = previous) {
    handler(type, context, text);
  }
}

bool DecoderMessages::TellOfDamage() const {
  return std::any_of(messages.begin(), messages.end(), [](const QString& message) {
    return std::any_of(std::begin(kDamage), std::end(kDamage), [&](const char* words) {
      return message.contains(QLatin1String(words), Qt::CaseInsensitive);
    });
  });
}
