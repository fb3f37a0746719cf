#pragma once

#include <QString>
#include <optional>

#include "studio/mosaic/artwork.h"

class QWidget;

/// The studio's long work, done in the background over a window that says how far it is. Each
/// answers nothing, or false, when the person cancelled it, and throws StudioError when it fails.

std::optional<Picture> ReadPicture(QWidget& window, const QString& path);

std::optional<Mosaic> BuildMosaic(QWidget& window, const Picture& picture,
                                  const MosaicChoices& choices);

/// Writes the artwork's mosaic; until all of it is written the path keeps what it had.
bool ExportMosaic(QWidget& window, const Artwork& artwork, const QString& path);
