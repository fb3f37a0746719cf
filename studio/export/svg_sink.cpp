#include <string>
#include <vector>

#include "studio/base/output.h"
#include "studio/base/text.h"
#include "studio/export/mosaic_export.h"
#include "studio/export/picture_encoding.h"

namespace {

constexpr size_t kWrittenAtOnce = 1 << 16;

/// "#rrggbb"; the opacity doesn't show.
std::string ColorText(QRgb color) {
  constexpr char kHexDigits[] = "0123456789abcdef";
  std::string text = "#......";
  for (size_t i = 1; i < text.size(); ++i, color <<= 4) text[i] = kHexDigits[color >> 20 & 15];
  return text;
}

std::string SizeAttributes(QSizeF size) {
  return "\" width=\"" + NumberText(size.width()) + "\" height=\"" + NumberText(size.height());
}

class SvgSink final : public MosaicSink {
 public:
  SvgSink(QIODevice& device, const MosaicGeometry& geometry, const QImage& below);

  void AddRow(std::span<const QRgb> tiles) override;
  void Finish() override { WriteAll(device, text + "</g>\n</svg>\n"); }

 private:
  QIODevice& device;
  const MosaicGeometry geometry;
  std::string text;                       // that is not written yet
  std::vector<std::string> columnStarts;  // of each tile's element, to where its row comes in
  std::string sizeAttributes;
  int row = 0;
};

SvgSink::SvgSink(QIODevice& device, const MosaicGeometry& geometry, const QImage& below)
    : device(device),
      geometry(geometry),
      sizeAttributes(SizeAttributes(geometry.tile) + "\" fill=\"") {
  const std::string width = NumberText(geometry.size.width());
  const std::string height = NumberText(geometry.size.height());
  text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\"";
  text += " width=\"" + width + "pt\" height=\"" + height + "pt\" viewBox=\"0 0 " + width + " " +
          height + "\">\n";
  if (!below.isNull()) {
    const bool isClear = below.hasAlphaChannel();
    const QByteArray bytes =
        isClear ? EncodePicture(below, "png") : EncodePicture(below, "jpeg", kJpegQuality);
    text += "<image width=\"" + width + "\" height=\"" + height +
            "\" preserveAspectRatio=\"none\" href=\"data:image/" + (isClear ? "png" : "jpeg") +
            ";base64," + bytes.toBase64().toStdString() + "\"/>\n";
  }
  // Tiles that touch must not let anything shine through between them.
  text += geometry.TilesTouch() ? "<g shape-rendering=\"crispEdges\">\n" : "<g>\n";

  for (int column = 0; column < geometry.tilesAcross; ++column) {
    columnStarts.push_back("<rect x=\"" + NumberText(geometry.Left(column)) + "\" y=\"");
  }
}

void SvgSink::AddRow(std::span<const QRgb> tiles) {
  const std::string rest = NumberText(geometry.Top(row++)) + sizeAttributes;
  for (size_t column = 0; column < tiles.size(); ++column) {
    text.append(columnStarts[column]).append(rest).append(ColorText(tiles[column]));
    const int alpha = qAlpha(tiles[column]);
    if (alpha < 255) text.append("\" fill-opacity=\"").append(NumberText(alpha / 255.0));
    text.append("\"/>\n");
    if (text.size() < kWrittenAtOnce) continue;
    WriteAll(device, text);
    text.clear();
  }
}

}  // namespace

std::unique_ptr<MosaicSink> MakeSvgSink(QIODevice& device, const MosaicGeometry& geometry,
                                        const QImage& below, double) {
  return std::make_unique<SvgSink>(device, geometry, below);
}
