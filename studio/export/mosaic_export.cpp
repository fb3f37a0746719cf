#include "studio/export/mosaic_export.h"

#include <QIODevice>
#include <algorithm>
#include <iterator>

#include "studio/base/studio_error.h"

namespace {

constexpr ExportKind kKinds[] = {
    {".svg", "$$$/Studio/Export/Svg=SVG drawing (*.svg)", MakeSvgSink, false},
    {".pdf", "$$$/Studio/Export/Pdf=PDF document (*.pdf)", MakePdfSink, false},
    {".png", "$$$/Studio/Export/Png=PNG picture (*.png)", MakePngSink, true},
};

/// Counts the bytes that are written to it.
class CountingDevice final : public QIODevice {
 public:
  CountingDevice() { open(WriteOnly | Unbuffered); }
  qint64 Count() const { return count; }

 protected:
  qint64 readData(char*, qint64) override { return -1; }
  qint64 writeData(const char*, qint64 bytes) override {
    count += bytes;
    return bytes;
  }

 private:
  qint64 count = 0;
};

}  // namespace

double EstimatedBytes(const Mosaic& mosaic, const ExportKind& kind) {
  constexpr int kSampledRows = 16;
  constexpr double kBytesPerTileOfPicture = 4;  // the other pixels of a tile repeat the first
  MosaicGeometry sample = mosaic.geometry;
  if (kind.hasPixels) return kBytesPerTileOfPicture * sample.tilesAcross * sample.tilesDown;
  const int rows = std::min(kSampledRows, sample.tilesDown);
  sample.tilesDown = rows;
  sample.size.setHeight(sample.Top(rows) - sample.spacing.height());
  CountingDevice device;
  const auto sink = kind.makeSink(device, sample, {}, 0);
  for (int i = 0; i < rows; ++i) {
    const int row = int(qint64(i) * mosaic.tiles.height() / rows);
    const auto* line = reinterpret_cast<const QRgb*>(mosaic.tiles.constScanLine(row));
    sink->AddRow({line, size_t(mosaic.tiles.width())});
  }
  sink->Finish();
  return double(device.Count()) * mosaic.geometry.tilesDown / rows;
}

std::span<const ExportKind> ExportKinds() {
  return kKinds;
}

const ExportKind* FindExportKind(const QString& path) {
  const auto* kind = std::find_if(std::begin(kKinds), std::end(kKinds), [&](const auto& candidate) {
    return path.endsWith(QLatin1String(candidate.ending), Qt::CaseInsensitive);
  });
  return kind != std::end(kKinds) ? kind : nullptr;
}

const ExportKind& ExportKindOf(const QString& path) {
  if (const ExportKind* const kind = FindExportKind(path)) return *kind;
  throw StudioError(
      "$$$/Studio/Export/Ending=cannot export to %1: the name must end in .svg, .png or .pdf",
      path);
}
