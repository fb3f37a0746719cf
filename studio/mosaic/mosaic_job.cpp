#include "studio/mosaic/mosaic_job.h"

#include <algorithm>
#include <utility>

#include "studio/mosaic/mosaic_builder.h"

namespace {

/// The size that shares count from: the one that the dialog was given, or else the true one.
QSizeF SourceSize(const Picture& picture, const MosaicParameters& params) {
  if (params.sizeUnavailable) return picture.SizeInPoints();
  return QSizeF(params.boundsRight - params.boundsLeft, params.boundsBottom - params.boundsTop);
}

}  // namespace

MosaicJob::MosaicJob(const Picture& picture, const MosaicParameters& params,
                     const MosaicDialogState& state)
    : picture(picture),
      isColor(params.isColor),
      keepsPicture(!params.deleteRaster),
      geometry(MosaicGeometry::From(params, state, SourceSize(picture, params))) {}

QImage MosaicJob::Below() const {
  const bool shows = geometry.HasGaps() || picture.HasAlpha();
  return keepsPicture && shows ? picture.PixelsInSrgb() : QImage();
}

void MosaicJob::Add(std::unique_ptr<MosaicSink> sink) {
  sinks.push_back(std::move(sink));
}

bool MosaicJob::Run(const std::function<bool(int)>& goOn) {
  MosaicBuilder builder(picture, geometry.tilesAcross, geometry.tilesDown, isColor);
  int rowsDone = 0;
  const bool isComplete = builder.Run([&](std::span<const QRgb> tiles) {
    for (const auto& sink : sinks) sink->AddRow(tiles);
    return goOn(++rowsDone);
  });
  if (!isComplete) return false;
  return std::all_of(sinks.begin(), sinks.end(), [&](const auto& sink) {
    sink->Finish();
    return goOn(rowsDone);
  });
}
