#include <string>
#include <string_view>
#include <vector>

#include "studio/base/output.h"
#include "studio/base/text.h"
#include "studio/export/picture_encoding.h"
#include "studio/export/sinks.h"

namespace {

/// "#rrggbb"; the opacity doesn't show.
class ColorText {
 public:
  explicit ColorText(QRgb color) {
    constexpr char kHexDigits[] = "0123456789abcdef";
    int at = 1;
    for (const int channel : {qRed(color), qGreen(color), qBlue(color)}) {
      text[at++] = kHexDigits[channel >> 4];
      text[at++] = kHexDigits[channel & 15];
    }
  }
  operator std::string_view() const { return {text, sizeof text}; }

 private:
  char text[7] = {'#'};
};

std::string SizeAttributes(QSizeF size) {
  return "\" width=\"" + NumberText(size.width()) + "\" height=\"" + NumberText(size.height());
}

class SvgSink final : public MosaicSink {
 public:
  SvgSink(QIODevice& device, const MosaicGeometry& geometry, const QImage& below);

  void AddRow(std::span<const QRgb> tiles) override;
  void Finish() override;

 private:
  TextWriter writer;
  const MosaicGeometry geometry;
  std::vector<std::string> columnStarts;  // of each tile's element, to where its row comes in
  std::string sizeAttributes;
  int row = 0;
};

SvgSink::SvgSink(QIODevice& device, const MosaicGeometry& geometry, const QImage& below)
    : writer(device),
      geometry(geometry),
      sizeAttributes(SizeAttributes(geometry.tile) + "\" fill=\"") {
  const std::string width = NumberText(geometry.size.width());
  const std::string height = NumberText(geometry.size.height());
  writer << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << width << "pt\" height=\""
         << height << "pt\" viewBox=\"0 0 " << width << " " << height << "\">\n";
  if (!below.isNull()) {
    const bool isClear = below.hasAlphaChannel();
    const QByteArray bytes = isClear ? EncodePicture(below, "png") : EncodeAsJpeg(below);
    writer << "<image width=\"" << width << "\" height=\"" << height
           << "\" preserveAspectRatio=\"none\" href=\"data:image/" << (isClear ? "png" : "jpeg")
           << ";base64," << bytes.toBase64().toStdString() << "\"/>\n";
  }
  // Tiles that touch must not let anything shine through between them.
  writer << (geometry.TilesTouch() ? "<g shape-rendering=\"crispEdges\">\n" : "<g>\n");

  for (int column = 0; column < geometry.tilesAcross; ++column) {
    columnStarts.push_back("<rect x=\"" + NumberText(geometry.Left(column)) + "\" y=\"");
  }
}

void SvgSink::AddRow(std::span<const QRgb> tiles) {
  const std::string rest = NumberText(geometry.Top(row++)) + sizeAttributes;
  for (size_t column = 0; column < tiles.size(); ++column) {
    writer << columnStarts[column] << rest << ColorText(tiles[column]);
    const int alpha = qAlpha(tiles[column]);
    if (alpha < 255) writer << "\" fill-opacity=\"" << NumberText(alpha / 255.0);
    writer << "\"/>\n";
  }
}

void SvgSink::Finish() {
  writer << "</g>\n</svg>\n";
  writer.Flush();
}

}  // namespace

std::unique_ptr<MosaicSink> MakeSvgSink(QIODevice& device, const MosaicGeometry& geometry,
                                        const QImage& below, double) {
  return std::make_unique<SvgSink>(device, geometry, below);
}
