#pragma once

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
/// A PNG picture of the mosaic's size on the page, with so many pixels a point, at most
/// MostPngScale.
SinkMaker MakePngSink;

/// A kind of file that a mosaic can be written as.
struct ExportKind {
  const char* ending;  // with its dot
  const char* filter;  // for file dialogs
  SinkMaker* makeSink;
  bool hasPixels;
};

/// The pixels a point of a PNG picture that shows the tiles well: each has some, with sharp edges,
/// where about 64 million of them do, and at least one. Throws StudioError when none can be that
/// large.
double PngScale(const MosaicGeometry& geometry);
/// The most that a PNG picture of this size in points can have: 32 000 pixels a side, 256 million
/// together.
double MostPngScale(QSizeF size);

/// The size of a PNG picture of this size in points.
QSize PngPixels(QSizeF size, double pixelsPerPoint);

/// About how many bytes the tiles of an export take: extrapolated from some rows for a drawing, an
/// upper bound for a picture.
double EstimatedBytes(const Mosaic& mosaic, const ExportKind& kind);

/// The first is proposed.
std::span<const ExportKind> ExportKinds();

/// The kind that a file's name ends in, in capitals or not; null when there is none.
const ExportKind* FindExportKind(const QString& path);

/// The same, but throws StudioError when there is none.
const ExportKind& ExportKindOf(const QString& path);
