#pragma once

#include <QImage>
#include <memory>

#include "studio/mosaic/mosaic_geometry.h"
#include "studio/mosaic/mosaic_sink.h"

class QIODevice;

// The kinds of file. Each sink writes to `device`, which must outlive it; `below` lies under the
// tiles, as large as the mosaic, and is null for nothing. Making one throws StudioError too.

/// An SVG drawing, a user unit a point: one `rect` per tile in one group, in row order. Transparent
/// tiles are there too, with their opacity, so that the count always holds.
std::unique_ptr<MosaicSink> MakeSvgSink(QIODevice& device, const MosaicGeometry& geometry,
                                        const QImage& below, double);

/// A PDF document of one page, exactly as large as the mosaic, a filled rectangle per tile. The
/// page's content goes out in compressed pieces as it comes in, so that memory doesn't grow with
/// the tiles.
std::unique_ptr<MosaicSink> MakePdfSink(QIODevice& device, const MosaicGeometry& geometry,
                                        const QImage& below, double);

/// A PNG picture of the mosaic's size on the page, with so many pixels a point, at most
/// MostPngScale; PngScale for 0.
std::unique_ptr<MosaicSink> MakePngSink(QIODevice& device, const MosaicGeometry& geometry,
                                        const QImage& below, double pixelsPerPoint);
