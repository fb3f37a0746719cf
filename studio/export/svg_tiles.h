#pragma once

#include <QPointF>
#include <QRgb>
#include <QSizeF>
#include <span>
#include <string>
#include <vector>

#include "studio/mosaic/mosaic_geometry.h"

/// Writes the tiles of a mosaic as SVG: a `rect` element for each visible one, row by row.
class SvgTiles {
 public:
  /// Where the mosaic lies in the coordinate system of its elements.
  struct Place {
    QPointF origin;              // of the mosaic's upper left corner, in user units
    QSizeF unitsPerPoint{1, 1};  // user units, across and down
    int decimals = 4;            // of the numbers, at most 12
    std::string prefix;          // of the elements' names, with the colon
    bool hasStyleSheet = false;  // colours are then declarations, which come before its rules
  };

  SvgTiles(const MosaicGeometry& geometry, const Place& place);

  /// Appends the next row, from the top, to a text, without its fully transparent tiles.
  void AppendRow(std::span<const QRgb> tiles, std::string& text);

 private:
  const MosaicGeometry geometry;
  const Place place;
  std::vector<std::string> columnStarts;  // of each tile's element, to where its row comes in
  std::string sizeAttributes;
  int row = 0;
};
