#include "studio/mosaic/mosaic_job.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "studio/base/studio_error.h"
#include "studio/mosaic/tile_colors.h"

namespace {

/// Collects a mosaic as an image with a pixel for each tile.
class TileSink final : public MosaicSink {
 public:
  explicit TileSink(QImage& tiles) : image(tiles) {}

  void AddRow(std::span<const QRgb> row) override {
    std::memcpy(image.scanLine(rows++), row.data(), row.size_bytes());
  }
  void Finish() override {}

 private:
  QImage& image;
  int rows = 0;
};

}  // namespace

MosaicJob::MosaicJob(const Picture& picture, const MosaicChoices& choices)
    : picture(picture),
      isColor(choices.params.isColor),
      keepsPicture(!choices.params.deleteRaster),
      geometry(MosaicGeometry::From(choices, picture.SizeInPoints())) {}

bool MosaicJob::ShowsPicture() const {
  return keepsPicture && (geometry.HasGaps() || picture.HasAlpha());
}

QImage MosaicJob::Below() const {
  return ShowsPicture() ? picture.Pixels() : QImage();
}

void MosaicJob::Add(std::unique_ptr<MosaicSink> sink) {
  sinks.push_back(std::move(sink));
}

void MosaicJob::Add(Mosaic& mosaic) {
  QImage tiles(geometry.tilesAcross, geometry.tilesDown, QImage::Format_ARGB32);
  if (tiles.isNull()) throw StudioError(kNoMemory);
  mosaic = {geometry, std::move(tiles), Below(), keepsPicture};
  Add(std::make_unique<TileSink>(mosaic.tiles));
}

bool MosaicJob::Run(const GoOn& goOn) {
  TileColors builder(picture, geometry.tilesAcross, geometry.tilesDown, isColor);
  int rowsDone = 0;
  const bool isComplete = builder.Run(
      [&](std::span<const QRgb> tiles) {
        for (const auto& sink : sinks) sink->AddRow(tiles);
        return goOn(++rowsDone);
      },
      [&] { return !goOn(rowsDone); });
  if (!isComplete) return false;
  return std::all_of(sinks.begin(), sinks.end(), [&](const auto& sink) {
    sink->Finish();
    return goOn(rowsDone);
  });
}

bool WriteMosaic(const Mosaic& mosaic, MosaicSink& sink, const GoOn& goOn) {
  const QImage& tiles = mosaic.tiles;
  for (int row = 0; row < tiles.height(); ++row) {
    const auto* colors = reinterpret_cast<const QRgb*>(tiles.constScanLine(row));
    sink.AddRow({colors, size_t(tiles.width())});
    if (!goOn(row + 1)) return false;
  }
  sink.Finish();
  return goOn(tiles.height());
}
