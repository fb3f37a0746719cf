#pragma once

#include <QImage>
#include <QSizeF>
#include <QString>
#include <memory>
#include <span>

#include "studio/mosaic/mosaic_geometry.h"
#include "studio/mosaic/mosaic_sink.h"

class QIODevice;

/// Makes what writes a mosaic to the device, which must outlive it; `below` lies under the tiles,
/// as large as the mosaic, and is null for nothing. `pixelsPerPoint` is for a picture, 0 for
/// PngScale. Throws StudioError.
using SinkMaker = std::unique_ptr<MosaicSink>(QIODevice& device, const MosaicGeometry& geometry,
                                              const QImage& below, double pixelsPerPoint);

/// An SVG drawing, a user unit a point: one `rect` per tile in one group, in row order. Transparent
/// tiles are there too, with their opacity, so that the count always holds.
SinkMaker MakeSvgSink;
/// A PDF document of one page, exactly as large as the mosaic, a filled rectangle per tile. The
/// page's content goes out in compressed pieces as it comes in, so that memory doesn't grow with
/// the tiles.
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

/// The first is proposed.
std::span<const ExportKind> ExportKinds();

/// The kind that a file's name ends in, in capitals or not; null when there is none.
const ExportKind* FindExportKind(const QString& path);

/// The same, but throws StudioError when there is none.
const ExportKind& ExportKindOf(const QString& path);
