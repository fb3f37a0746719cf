// tesserae-svg-reader: draws the SVG file on its standard input and writes the pixels to its
// standard output, as svg.h has it.

#include <sys/resource.h>
#ifdef __linux__
#include <sys/prctl.h>
#endif

#include <QBuffer>
#include <QFile>
#include <QGuiApplication>
#include <QImageReader>
#include <QXmlStreamReader>
#include <algorithm>
#include <boost/iostreams/device/array.hpp>
#include <boost/iostreams/filter/gzip.hpp>
#include <boost/iostreams/filtering_stream.hpp>
#include <csignal>
#include <cstdio>

#include "studio/picture/svg.h"

namespace {

constexpr rlim_t kMostSeconds = 8;
constexpr rlim_t kMostMemory = rlim_t{2} << 30;
constexpr qsizetype kLargestDrawing = 256 << 20;  // unpacked, in bytes
constexpr qint64 kMostPixels = 1 << 28;

/// A limit that is lower already stays.
void Limit(int what, rlim_t amount) {
  rlimit limit{};
  getrlimit(what, &limit);
  limit.rlim_cur = std::min(limit.rlim_cur, amount);
  setrlimit(what, &limit);
}

/// Empty when it is damaged or larger than a drawing may be.
QByteArray Unpacked(const QByteArray& packed) {
  namespace io = boost::iostreams;
  io::filtering_istream stream;
  stream.push(io::gzip_decompressor());
  stream.push(io::array_source(packed.constData(), size_t(packed.size())));
  QByteArray bytes;
  char block[1 << 16];
  do {
    stream.read(block, sizeof block);
    bytes.append(block, stream.gcount());
  } while (stream && bytes.size() <= kLargestDrawing);
  return stream.eof() ? bytes : QByteArray();
}

bool ShowsOtherFile(const QByteArray& drawing);

/// An image is shown from the drawing itself when it stands there as "data:". What stands there may
/// be a drawing again. With a second comma it would be unclear where the data begin.
bool IsOtherFile(QStringView reference) {
  if (reference.isEmpty() || reference.startsWith(u'#')) return false;
  const qsizetype comma = reference.indexOf(u',');
  const bool isData = reference.startsWith(u"data:") && reference.left(comma).endsWith(u";base64");
  if (comma < 0 || !isData || reference.mid(comma + 1).contains(u',')) return true;
  const QByteArray content = QByteArray::fromBase64(reference.mid(comma + 1).toLatin1());
  QBuffer buffer;
  buffer.setData(content);
  buffer.open(QIODevice::ReadOnly);
  if (!IsSvg(QImageReader::imageFormat(&buffer))) return false;
  return content.startsWith("\x1f\x8b") || ShowsOtherFile(content);
}

/// Whether drawing it would open a file: for an image, or for a style sheet.
bool ShowsOtherFile(const QByteArray& drawing) {
  QXmlStreamReader xml(drawing);
  while (!xml.atEnd()) {
    const auto token = xml.readNext();
    if (token == QXmlStreamReader::ProcessingInstruction) {
      if (xml.processingInstructionTarget() == u"xml-stylesheet") return true;
    } else if (token == QXmlStreamReader::StartElement && xml.name() == u"image") {
      for (const auto& attribute : xml.attributes()) {
        if (attribute.name() == u"href" && IsOtherFile(attribute.value())) return true;
      }
    }
  }
  return false;
}

SvgAnswer Draw() {
  QFile input;
  if (!input.open(stdin, QIODevice::ReadOnly)) return SvgAnswer::kDamaged;
  QByteArray drawing = input.readAll();
  if (drawing.startsWith("\x1f\x8b")) drawing = Unpacked(drawing);
  if (ShowsOtherFile(drawing)) return SvgAnswer::kShowsOtherFile;
  QBuffer buffer(&drawing);
  QImageReader reader(&buffer, "svg");
  QImageReader::setAllocationLimit(0);
  const QSize pixels = reader.size();
  if (pixels.isEmpty() || pixels.width() > kMostPixels / pixels.height())
    return SvgAnswer::kDamaged;
  QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
  image.setDotsPerMeterX(kSvgDotsPerMeter);
  image.setDotsPerMeterY(kSvgDotsPerMeter);
  if (!reader.read(&image)) return SvgAnswer::kDamaged;
  const int32_t size[] = {image.width(), image.height()};
  const bool isWritten =
      std::fwrite(size, sizeof size, 1, stdout) == 1 &&
      std::fwrite(image.constBits(), size_t(image.sizeInBytes()), 1, stdout) == 1;
  return isWritten && std::fflush(stdout) == 0 ? SvgAnswer::kDrawn : SvgAnswer::kDamaged;
}

/// Messages are for developers.
void PassOver(QtMsgType, const QMessageLogContext&, const QString&) {}

}  // namespace

int main(int argc, char** argv) try {
  qInstallMessageHandler(PassOver);
#ifdef __linux__
  prctl(PR_SET_PDEATHSIG, SIGKILL);  // nobody waits for a drawing whose program has ended
#endif
  Limit(RLIMIT_CPU, kMostSeconds);
  Limit(RLIMIT_CORE, 0);
#ifndef __SANITIZE_ADDRESS__  // reserves terabytes for itself
  Limit(RLIMIT_AS, kMostMemory);
#endif
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  return int(Draw());
} catch (const std::exception&) {
  return int(SvgAnswer::kDamaged);
}
