#include "studio/mosaic_geometry.h"

#include <cmath>

#include "studio/studio_error.h"

namespace {

// Tiles below this are no longer told apart by the numbers in a picture file, in points.
constexpr double kSmallestTile = 0.001;

/// One direction of the mosaic, and the words in which the user knows it.
struct Side {
  const char* length;
  const char* direction;
  int tiles;
  int spacing;
  double size;

  double TileSize() const {
    if (tiles < 1) {
      throw StudioError(QString("a mosaic needs at least one tile %1").arg(direction));
    }
    if (!std::isfinite(size) || size <= 0) {
      throw StudioError(QString("the new %1 leaves no mosaic: it must be above 0").arg(length));
    }
    const double tile = (size - double(tiles - 1) * spacing) / tiles;
    if (spacing >= 0 && tile >= kSmallestTile) return tile;
    throw StudioError(QString("no room for tiles: %1 tiles %2 with a spacing of %3 pt don't fit in "
                              "a %4 of %5 pt")
                          .arg(tiles)
                          .arg(direction)
                          .arg(spacing)
                          .arg(length)
                          .arg(size));
  }
};

}  // namespace

MosaicGeometry MosaicGeometry::From(const MosaicParameters& params, const MosaicDialogState& state,
                                    QSizeF sourceSize) {
  const double unitX = state.usePercent ? sourceSize.width() : 1;
  const double unitY = state.usePercent ? sourceSize.height() : 1;
  const Side across{"width", "across", params.tilesAcross, params.tileSpacingHorizontal,
                    params.newWidth * unitX};
  const Side down{"height", "down", params.tilesDown, params.tileSpacingVertical,
                  params.newHeight * unitY};

  MosaicGeometry geometry;
  geometry.tile = {across.TileSize(), down.TileSize()};
  geometry.tilesAcross = across.tiles;
  geometry.tilesDown = down.tiles;
  geometry.size = {across.size, down.size};
  // A single tile has no neighbour.
  geometry.spacing = {across.tiles > 1 ? double(across.spacing) : 0.0,
                      down.tiles > 1 ? double(down.spacing) : 0.0};
  return geometry;
}
