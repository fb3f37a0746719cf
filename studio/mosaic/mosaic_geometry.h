#pragma once

#include <QSizeF>

#include "studio/base/studio_error.h"
#include "studio/mosaic/mosaic_choices.h"

/// Choices that lead to no mosaic.
class ChoiceError : public StudioError {
 public:
  /// `controlId` is the ID of the dialog's field to change, a literal; the rest is as
  /// StudioError's.
  template <typename... Values>
  ChoiceError(const char* controlId, const char* key, const Values&... values)
      : StudioError(key, values...), field(controlId) {}

  const char* Field() const { return field; }

 private:
  const char* field;
};

/// Where the tiles lie, in points from the mosaic's top left corner, y downwards.
struct MosaicGeometry {
  int tilesAcross = 1;
  int tilesDown = 1;
  QSizeF size;     // of the whole mosaic
  QSizeF spacing;  // between neighbouring tiles
  QSizeF tile;     // of one tile, above 0

  /// From the dialog's results for a picture of `pictureSize` points. The record's bounds hold that
  /// size in whole points: percentages count from them, and a new size equal to them means the
  /// exact one. Throws ChoiceError when there is no tile, no size, or no room for tiles between the
  /// spacing.
  static MosaicGeometry From(const MosaicChoices& choices, QSizeF pictureSize);

  double Left(int column) const { return column * (tile.width() + spacing.width()); }
  double Top(int row) const { return row * (tile.height() + spacing.height()); }
  bool HasGaps() const { return !spacing.isNull(); }
  bool TilesTouch() const {
    return (tilesAcross > 1 && spacing.width() == 0) || (tilesDown > 1 && spacing.height() == 0);
  }
};
