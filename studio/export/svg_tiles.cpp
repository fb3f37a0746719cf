#include "studio/export/svg_tiles.h"

#include "studio/base/text.h"

namespace {

/// "#rrggbb"; the opacity doesn't show.
std::string ColorText(QRgb color) {
  constexpr char kHexDigits[] = "0123456789abcdef";
  std::string text = "#......";
  for (size_t i = 1; i < text.size(); ++i, color <<= 4) text[i] = kHexDigits[color >> 20 & 15];
  return text;
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
