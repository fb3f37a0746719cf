#include "studio/export/svg_sink.h"

#include "studio/base/output.h"
#include "studio/base/text.h"
#include "studio/export/mosaic_export.h"

namespace {

constexpr size_t kWrittenAtOnce = 1 << 16;

/// "#rrggbb", without the opacity.
std::string ColorText(QRgb color) {
  constexpr char kHexDigits[] = "0123456789abcdef";
  std::string text = "#......";
  for (size_t i = 1; i < text.size(); ++i, color <<= 4) text[i] = kHexDigits[color >> 20 & 15];
  return text;
}

class SvgSink final : public MosaicSink {
 public:
  SvgSink(QIODevice& device, const MosaicGeometry& geometry, const QImage& below);

  void AddRow(std::span<const QRgb> row) override;
  void Finish() override { WriteAll(device, text + "</g>\n</svg>\n"); }

 private:
  QIODevice& device;
  SvgTiles tiles;
  std::string text;  // a buffer, not written yet
};

SvgSink::SvgSink(QIODevice& device, const MosaicGeometry& geometry, const QImage& below)
    : device(device), tiles(geometry, {}) {
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
  // Tiles that touch must not let the background show through between them.
  text += geometry.TilesTouch() ? "<g shape-rendering=\"crispEdges\">\n" : "<g>\n";
}

void SvgSink::AddRow(std::span<const QRgb> row) {
  tiles.AppendRow(row, text);
  if (text.size() < kWrittenAtOnce) return;
  WriteAll(device, text);
  text.clear();
}

}  // namespace

SvgTiles::SvgTiles(const MosaicGeometry& geometry, const Place& place)
    : geometry(geometry), place(place) {
  const auto number = [&](double value) { return NumberText(value, place.decimals); };
  for (int column = 0; column < geometry.tilesAcross; ++column) {
    const double x = place.origin.x() + geometry.Left(column) * place.unitsPerPoint.width();
    columnStarts.push_back("<" + place.prefix + "rect x=\"" + number(x) + "\" y=\"");
  }
  sizeAttributes = "\" width=\"" + number(geometry.tile.width() * place.unitsPerPoint.width()) +
                   "\" height=\"" + number(geometry.tile.height() * place.unitsPerPoint.height()) +
                   (place.hasStyleSheet ? "\" style=\"stroke:none;fill:" : "\" fill=\"");
}

void SvgTiles::AppendRow(std::span<const QRgb> tiles, std::string& text) {
  const double y = place.origin.y() + geometry.Top(row++) * place.unitsPerPoint.height();
  const std::string rest = NumberText(y, place.decimals) + sizeAttributes;
  const char* const opacity = place.hasStyleSheet ? ";fill-opacity:" : "\" fill-opacity=\"";
  for (size_t column = 0; column < tiles.size(); ++column) {
    const int alpha = qAlpha(tiles[column]);
    if (alpha == 0) continue;
    text.append(columnStarts[column]).append(rest).append(ColorText(tiles[column]));
    if (alpha < 255) text.append(opacity).append(NumberText(alpha / 255.0));
    text.append("\"/>\n");
  }
}

std::unique_ptr<MosaicSink> MakeSvgSink(QIODevice& device, const MosaicGeometry& geometry,
                                        const QImage& below, double) {
  return std::make_unique<SvgSink>(device, geometry, below);
}
