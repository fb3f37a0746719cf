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
    int decimals = 4;            // of the numbers, 0 to kMostDecimals
    std::string prefix;          // of the elements' names, with the colon
    bool hasStyleSheet = false;  // colours are then declarations, which override its rules
  };

  SvgTiles(const MosaicGeometry& geometry, const Place& place);

  /// Appends the next row, from top to bottom, without its fully transparent tiles.
  void AppendRow(std::span<const QRgb> tiles, std::string& text);

 private:
  const MosaicGeometry geometry;
  const Place place;
  std::vector<std::string> columnStarts;  // of a tile's element in each column, up to the y value
  std::string sizeAttributes;
  int row = 0;
};
