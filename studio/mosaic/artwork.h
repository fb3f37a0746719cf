#pragma once

#include <QImage>
#include <QString>
#include <memory>
#include <optional>

#include "studio/mosaic/mosaic_choices.h"
#include "studio/mosaic/mosaic_geometry.h"
#include "studio/picture/picture.h"

/// A mosaic as it was built.
struct Mosaic {
  MosaicGeometry geometry;
  QImage tiles;  // Format_ARGB32; a pixel a tile, or for several where a preview has very many
  QImage below;  // lies under the tiles, as large as the mosaic; null for nothing
  bool keepsPicture = false;  // also when `below` is null, because the tiles cover the picture
};

/// What lies on the artboard: a placed picture, or the mosaic that it became. Never changes; undo
/// goes from one to another.
struct Artwork {
  QString path;  // the picture's file
  Picture picture;
  bool isSizeKnown = true;               // and within what the dialog can compute with
  std::shared_ptr<const Mosaic> mosaic;  // null before there is one

  /// In points.
  QSizeF Size() const { return mosaic ? mosaic->geometry.size : picture.SizeInPoints(); }
};

using ArtworkPtr = std::shared_ptr<const Artwork>;

/// A picture that was just placed; `isSizeUnknown` when the size in its file is to be ignored.
ArtworkPtr Place(const QString& path, Picture picture, bool isSizeUnknown);

/// The same picture as this mosaic.
ArtworkPtr WithMosaic(const Artwork& artwork, Mosaic mosaic);
