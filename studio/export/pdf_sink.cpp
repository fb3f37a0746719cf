#include <QFileInfo>
#include <QPainter>
#include <cstdio>
#include <string>
#include <vector>

#include "studio/base/file_name.h"
#include "studio/base/output.h"
#include "studio/base/text.h"
#include "studio/export/mosaic_export.h"

namespace {

constexpr size_t kPieceSize = 1 << 18;
constexpr int kFastCompression = 1;

enum Object { kNone, kCatalog, kPages, kPage, kInfo, kFirstFree };

std::string ChannelText(int value) {
  return NumberText(value / 255.0) + " ";
}

std::string OpacityName(int alpha) {
  return "/A" + std::to_string(alpha);
}

/// Names for all opacities, because the pages' contents are written before it is known which occur.
std::string OpacityResources() {
  std::string resources = "/ExtGState <<";
  for (int alpha = 0; alpha < 256; ++alpha) {
    resources.append(" ").append(OpacityName(alpha));
    resources.append(" << /ca ").append(NumberText(alpha / 255.0)).append(" >>");
  }
  return resources + " >>";
}

std::string Reference(int object) {
  return std::to_string(object) + " 0 R";
}

/// The picture on white, because JPEG has no opacity.
QImage OnPaper(const QImage& picture) {
  if (!picture.hasAlphaChannel()) return picture;
  QImage paper(picture.size(), QImage::Format_RGB32);
  paper.fill(Qt::white);
  QPainter(&paper).drawImage(0, 0, picture);
  return paper;
}

/// A text as a PDF string: a byte order mark and UTF-16, in hexadecimal digits.
std::string StringText(const QString& text) {
  std::string digits = "<FEFF";
  for (const QChar unit : text) {
    char hex[8];
    std::snprintf(hex, sizeof hex, "%04X", unsigned(unit.unicode()));
    digits += hex;
  }
  return digits + ">";
}

class PdfSink final : public MosaicSink {
 public:
  PdfSink(QIODevice& device, const MosaicGeometry& geometry, const QImage& below);

  void AddRow(std::span<const QRgb> tiles) override;
  void Finish() override;

 private:
  void Write(const std::string& bytes);
  int NewObject();
  void BeginObject(int number);
  void WriteStream(int number, const std::string& dictionary, const QByteArray& content);
  void WriteContentPiece();

  QIODevice& device;
  const MosaicGeometry geometry;
  int64_t written = 0;
  std::vector<int64_t> offsets;  // of the objects, by number
  int picture = 0;               // the number of its object; 0 without a picture
  std::vector<int> pieces;       // the numbers of the content streams
  std::string content;           // the next piece
  int alpha = 255;               // the current opacity of the page's content
  int row = 0;
};

PdfSink::PdfSink(QIODevice& device, const MosaicGeometry& geometry, const QImage& below)
    : device(device), geometry(geometry), offsets(kFirstFree) {
  // Bytes above 127 in the first lines mark the file as binary.
  Write("%PDF-1.4\n%\xE2\xE3\xCF\xD3\n");
  const std::string width = NumberText(geometry.size.width());
  const std::string height = NumberText(geometry.size.height());
  if (!below.isNull()) {
    picture = NewObject();
    WriteStream(picture,
                "/Type /XObject /Subtype /Image /ColorSpace /DeviceRGB /BitsPerComponent 8 "
                "/Filter /DCTDecode /Width " +
                    std::to_string(below.width()) + " /Height " + std::to_string(below.height()),
                EncodePicture(OnPaper(below), "jpeg", kJpegQuality));
    content += "q " + width + " 0 0 " + height + " 0 0 cm /Picture Do Q\n";
  }
  // The page's y axis points upwards.
  content += "1 0 0 -1 0 " + height + " cm\n";
}

void PdfSink::AddRow(std::span<const QRgb> tiles) {
  const std::string top = " " + NumberText(geometry.Top(row++)) + " ";
  const std::string size =
      NumberText(geometry.tile.width()) + " " + NumberText(geometry.tile.height()) + " re f\n";
  for (size_t column = 0; column < tiles.size(); ++column) {
    const QRgb color = tiles[column];
    if (qAlpha(color) == 0) continue;
    if (qAlpha(color) != alpha) content += OpacityName(alpha = qAlpha(color)) + " gs ";
    for (int channel : {qRed(color), qGreen(color), qBlue(color)}) content += ChannelText(channel);
    content.append("rg ").append(NumberText(geometry.Left(int(column)))).append(top).append(size);
    if (content.size() >= kPieceSize) WriteContentPiece();
  }
}

void PdfSink::Finish() {
  WriteContentPiece();
  BeginObject(kCatalog);
  Write("<< /Type /Catalog /Pages " + Reference(kPages) +
        " /ViewerPreferences << /DisplayDocTitle true >> >>\nendobj\n");
  BeginObject(kInfo);
  const QString title = QFileInfo(OnOneLine(device.objectName())).completeBaseName();
  Write("<< /Title " + StringText(title) + " >>\nendobj\n");
  BeginObject(kPages);
  Write("<< /Type /Pages /Count 1 /Kids [" + Reference(kPage) + "] >>\nendobj\n");
  BeginObject(kPage);
  std::string contents;
  for (int piece : pieces) contents.append(Reference(piece)).append(" ");
  Write("<< /Type /Page /Parent " + Reference(kPages) + " /MediaBox [0 0 " +
        NumberText(geometry.size.width()) + " " + NumberText(geometry.size.height()) +
        "]\n/Resources << " + OpacityResources() +
        (picture ? " /XObject << /Picture " + Reference(picture) + " >>" : "") +
        " >>\n/Contents [" + contents + "] >>\nendobj\n");

  const int64_t tableStart = written;
  std::string table = "xref\n0 " + std::to_string(offsets.size()) + "\n";
  for (size_t number = 0; number < offsets.size(); ++number) {
    char entry[32];
    const bool isFree = number == kNone;
    std::snprintf(entry, sizeof entry, "%010lld %05d %c \n",
                  static_cast<long long>(offsets[number]), isFree ? 65535 : 0, isFree ? 'f' : 'n');
    table += entry;
  }
  Write(table + "trailer\n<< /Size " + std::to_string(offsets.size()) + " /Root " +
        Reference(kCatalog) + " /Info " + Reference(kInfo) + " >>\nstartxref\n" +
        std::to_string(tableStart) + "\n%%EOF\n");
}

void PdfSink::Write(const std::string& bytes) {
  WriteAll(device, bytes);
  written += int64_t(bytes.size());
}

int PdfSink::NewObject() {
  offsets.push_back(0);
  return int(offsets.size()) - 1;
}

void PdfSink::BeginObject(int number) {
  offsets[size_t(number)] = written;
  Write(std::to_string(number) + " 0 obj\n");
}

void PdfSink::WriteStream(int number, const std::string& dictionary, const QByteArray& bytes) {
  BeginObject(number);
  Write("<< " + dictionary + " /Length " + std::to_string(bytes.size()) + " >>\nstream\n");
  Write(bytes.toStdString());
  Write("\nendstream\nendobj\n");
}

/// The graphics state continues from one piece to the next.
void PdfSink::WriteContentPiece() {
  constexpr qsizetype kLengthPrefix = 4;  // of qCompress, not part of the compressed data
  pieces.push_back(NewObject());
  const auto* bytes = reinterpret_cast<const uchar*>(content.data());
  WriteStream(pieces.back(), "/Filter /FlateDecode",
              qCompress(bytes, qsizetype(content.size()), kFastCompression).mid(kLengthPrefix));
  content.clear();
}

}  // namespace

std::unique_ptr<MosaicSink> MakePdfSink(QIODevice& device, const MosaicGeometry& geometry,
                                        const QImage& below, double) {
  return std::make_unique<PdfSink>(device, geometry, below);
}
