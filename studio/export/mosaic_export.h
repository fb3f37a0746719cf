#pragma once

#include <QByteArray>
#include <QImage>
#include <QSizeF>
#include <QString>
#include <memory>
#include <span>

#include "studio/mosaic/artwork.h"
#include "studio/mosaic/mosaic_geometry.h"
#include "studio/mosaic/mosaic_sink.h"

class QIODevice;

/// Creates the sink that writes a mosaic to the device, which must outlive it. `below` is the
/// picture under the tiles, as large as the mosaic, or null. `pixelsPerPoint` applies to PNG; 0
/// means PngScale. Throws StudioError.
using SinkMaker = std::unique_ptr<MosaicSink>(QIODevice& device, const MosaicGeometry& geometry,
                                              const QImage& below, double pixelsPerPoint);

/// An SVG drawing with user units of one point: one group with a `rect` for each tile that is not
/// fully transparent, in row order.
SinkMaker MakeSvgSink;
/// A PDF document of one page of the mosaic's size: one filled rectangle for each tile that is not
/// fully transparent. Its title is the device's object name without folder and ending. The page's
/// content is written in compressed pieces as rows arrive, so memory does not grow with the tiles.
SinkMaker MakePdfSink;
/// A PNG picture of the mosaic's size with this many pixels per point, at most MostPngScale.
SinkMaker MakePngSink;

/// A file format for mosaics.
struct ExportKind {
  const char* ending;  // with the dot
  const char* filter;  // the key of its description in file dialogs
  SinkMaker* makeSink;
  bool hasPixels;
};

/// The default number of pixels per point of a PNG picture: at least four pixels per tile, with
/// sharp edges, up to about 64 million pixels; beyond that at least one per tile. Throws
/// StudioError if that exceeds MostPngScale.
double PngScale(const MosaicGeometry& geometry);
/// The largest number of pixels per point of a PNG picture of this size in points: 32 000 pixels
/// per side, 256 million together.
double MostPngScale(QSizeF size);

/// The size of a PNG picture of this size in points.
QSize PngPixels(QSizeF size, double pixelsPerPoint);

/// The approximate size of an export in bytes, with the picture below the tiles: extrapolated from
/// some rows of tiles and a part of the picture; for PNG an upper bound. `pixelsPerPoint` is that
/// of SinkMaker. Throws StudioError.
double EstimatedBytes(const Mosaic& mosaic, const ExportKind& kind, double pixelsPerPoint = 0);

/// From this number of bytes on, the user is warned: other programs may not be able to open the
/// file.
constexpr double kLargeExport = 500e6;

/// All formats; the first is the default.
std::span<const ExportKind> ExportKinds();

/// The format of a file name's ending, in upper or lower case; null if it has none of them.
const ExportKind* FindExportKind(const QString& path);

/// The same, but throws StudioError instead of returning null.
const ExportKind& ExportKindOf(const QString& path);

/// A picture as the content of a file of this format ("png", "jpeg"). In memory, because Qt's
/// encoders do not report why a device fails. `quality` is that of QImageWriter. Throws
/// StudioError.
QByteArray EncodePicture(const QImage& picture, const char* format, int quality = -1);

/// The quality of pictures that are embedded in an export.
constexpr int kJpegQuality = 92;
