#pragma once

#include <QString>
#include <optional>

#include "studio/drawing/placed_image.h"
#include "studio/mosaic/artwork.h"

class QIODevice;
class QWidget;
struct ExportKind;

/// The studio's long work, on other threads than the window's. The window is redrawn meanwhile but
/// takes no input; after half a second the window is disabled and a dialog shows the progress. The
/// dialog, closing the window and the end of the program cancel the work. Each answers nothing, or
/// false, when it was cancelled, and throws StudioError when it fails.

std::optional<Picture> ReadPicture(QWidget& window, const QString& path);

std::optional<PlacedImage> ReadImage(QWidget& window,
                                     const std::shared_ptr<const SvgDrawing>& drawing,
                                     const ImageElement& image, bool isSizeUnknown);

std::optional<Mosaic> BuildMosaic(QWidget& window, const Picture& picture,
                                  const MosaicChoices& choices);

/// `label` says what is done; `pixelsPerPoint` is as the kind's makeSink has it.
bool WriteMosaic(QWidget& window, const QString& label, const Mosaic& mosaic,
                 const ExportKind& kind, double pixelsPerPoint, QIODevice& device);

/// Writes the artwork's mosaic; until all of it is written the path keeps what it had.
bool ExportMosaic(QWidget& window, const Artwork& artwork, const QString& path,
                  double pixelsPerPoint);

/// Writes the drawing of an image with the mosaic that was made of it. Replaces the drawing's own
/// file when the path is the same.
bool ExportDrawing(QWidget& window, const PlacedImage& image,
                   const std::shared_ptr<const Mosaic>& mosaic, const QString& path);
