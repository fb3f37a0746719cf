#pragma once

#include <QMimeData>
#include <memory>
#include <optional>

#include "studio/mosaic/artwork.h"

class QWidget;

/// What the clipboard gets for an artwork: its mosaic as SVG, when it has so few tiles that others
/// can take it, and as a picture; or the placed picture. Null when the person stopped it. Throws
/// StudioError.
std::unique_ptr<QMimeData> MimeDataOf(QWidget& window, const Artwork& artwork);

/// The local files that are dragged, dropped or on the clipboard.
QStringList FilesIn(const QMimeData& data);

/// The picture that the data hold themselves; nothing when there is none. Throws StudioError when
/// there is no memory for it.
std::optional<Picture> PictureIn(const QMimeData& data);
