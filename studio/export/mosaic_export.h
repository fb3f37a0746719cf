#pragma once

#include <QImage>
#include <QSizeF>
#include <QString>
#include <memory>
#include <span>

#include "studio/mosaic/mosaic_geometry.h"
#include "studio/mosaic/mosaic_sink.h"

class QIODevice;

/// A kind of file that a mosaic can be written as.
struct ExportKind {
  const char* ending;  // with its dot
  const char* filter;  // for file dialogs
  /// What writes the mosaic to the device, which must outlive it; `below` lies under the tiles,
  /// null for nothing. `pixelsPerPoint` is for a picture, 0 for PngScale. Throws StudioError.
  std::unique_ptr<MosaicSink> (*makeSink)(QIODevice& device, const MosaicGeometry& geometry,
                                          const QImage& below, double pixelsPerPoint);
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
