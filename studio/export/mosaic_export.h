#pragma once

#include <QImage>
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
  /// null for nothing. Throws StudioError.
  std::unique_ptr<MosaicSink> (*makeSink)(QIODevice& device, const MosaicGeometry& geometry,
                                          const QImage& below);
};

/// The first is proposed.
std::span<const ExportKind> ExportKinds();

/// The kind that a file's name ends in, in capitals or not; null when there is none.
const ExportKind* FindExportKind(const QString& path);

/// The same, but throws StudioError when there is none.
const ExportKind& ExportKindOf(const QString& path);
