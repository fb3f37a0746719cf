#pragma once

#include <QImage>
#include <QString>
#include <memory>

#include "studio/mosaic/mosaic_geometry.h"
#include "studio/mosaic/mosaic_sink.h"

class QIODevice;

/// Throws StudioError when the ending of a file's name stands for no kind of file that a mosaic can
/// be written as.
void CheckExportEnding(const QString& path);

/// What writes the mosaic to the device in the kind that the path's ending stands for: "svg",
/// "png" or "pdf" in any case. `below` lies under the tiles; null for nothing.
std::unique_ptr<MosaicSink> MakeExport(const QString& path, QIODevice& device,
                                       const MosaicGeometry& geometry, const QImage& below);
