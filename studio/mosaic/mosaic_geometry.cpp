#include "studio/mosaic/mosaic_geometry.h"

#include <cmath>

#include "studio/base/text.h"

namespace {

// In points; the four decimals of numbers in SVG and PDF files cannot tell smaller tiles apart.
constexpr double kSmallestTile = 0.001;

/// The dialog's fields for one direction of the mosaic, and the errors about it.
struct Refusals {
  const char* countField;
  const char* sizeField;
  const char* spacingField;
  const char* noTile;
  const char* noSize;
  const char* noRoom;
};

constexpr Refusals kAcross{"HorizontalCountTxt",
                           "NewWidthTxt",
                           "TileSpaceHorzTxt",
                           "$$$/Studio/Mosaic/NoColumn=a mosaic needs at least one tile across",
                           "$$$/Studio/Mosaic/NoWidth=the new width must be greater than 0",
                           "$$$/Studio/Mosaic/NoRoomAcross=no room for tiles: %1 tiles across with "
                           "a spacing of %2 pt do not fit in a width of %3 pt"};
constexpr Refusals kDown{"VerticalCountTxt",
                         "NewHeightTxt",
                         "TileSpaceVertTxt",
                         "$$$/Studio/Mosaic/NoRow=a mosaic needs at least one tile down",
                         "$$$/Studio/Mosaic/NoHeight=the new height must be greater than 0",
                         "$$$/Studio/Mosaic/NoRoomDown=no room for tiles: %1 tiles down with a "
                         "spacing of %2 pt do not fit in a height of %3 pt"};

struct Side {
  const Refusals& refusals;
  int tiles;
  int spacing;
  double size;

  double TileSize() const {
    if (tiles < 1) throw ChoiceError(refusals.countField, refusals.noTile);
    if (!std::isfinite(size) || size <= 0) throw ChoiceError(refusals.sizeField, refusals.noSize);
    const double tile = (size - double(tiles - 1) * spacing) / tiles;
    if (spacing >= 0 && tile >= kSmallestTile) return tile;
    throw ChoiceError(spacing == 0 ? refusals.sizeField : refusals.spacingField, refusals.noRoom,
                      NumberForUser(tiles), NumberForUser(spacing), NumberForUser(size));
  }
};

QSizeF NewSize(const MosaicChoices& choices, QSizeF pictureSize) {
  const MosaicParameters& params = choices.params;
  QSizeF whole = pictureSize;
  if (!params.sizeUnavailable) {
    whole = QSizeF(params.boundsRight - params.boundsLeft, params.boundsBottom - params.boundsTop);
  }
  const QSizeF unit = choices.state.usePercent ? whole : QSizeF(1, 1);
  const QSizeF size(params.newWidth * unit.width(), params.newHeight * unit.height());
  return size == whole ? pictureSize : size;
}

}  // namespace

MosaicGeometry MosaicGeometry::From(const MosaicChoices& choices, QSizeF pictureSize) {
  const MosaicParameters& params = choices.params;
  const QSizeF size = NewSize(choices, pictureSize);
  const Side across{kAcross, params.tilesAcross, params.tileSpacingHorizontal, size.width()};
  const Side down{kDown, params.tilesDown, params.tileSpacingVertical, size.height()};

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
