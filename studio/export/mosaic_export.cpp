#include "studio/export/mosaic_export.h"

#include <QBuffer>
#include <QImageWriter>
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

double Area(QSize size) {
  return double(size.width()) * size.height();
}

/// The bytes of an export with this many rows, taken from the whole height of the mosaic.
double SizeOfRows(const Mosaic& mosaic, const ExportKind& kind, int rows, const QImage& below) {
  CountingDevice device;
  const auto sink = kind.makeSink(device, mosaic.geometry, below, 0);
  for (int i = 0; i < rows; ++i) {
    const int row = int(qint64(i) * mosaic.tiles.height() / rows);
    const auto* line = reinterpret_cast<const QRgb*>(mosaic.tiles.constScanLine(row));
    sink->AddRow({line, size_t(mosaic.tiles.width())});
  }
  sink->Finish();
  return double(device.Count());
}

}  // namespace

double EstimatedBytes(const Mosaic& mosaic, const ExportKind& kind, double pixelsPerPoint) {
  constexpr int kMostRows = 16;
  constexpr QSize kMostPixels(512, 512);
  constexpr double kBytesPerPixel = 4;
  const auto& [geometry, tiles, below, keepsPicture] = mosaic;
  if (kind.hasPixels && below.isNull()) {
    // The other pixels of a tile repeat the first one.
    return kBytesPerPixel * geometry.tilesAcross * geometry.tilesDown;
  }
  if (kind.hasPixels) {
    const double scale = pixelsPerPoint > 0 ? pixelsPerPoint : PngScale(geometry);
    return kBytesPerPixel * Area(PngPixels(geometry.size, scale));
  }
  const double empty = SizeOfRows(mosaic, kind, 0, {});
  const int rows = std::min(kMostRows, geometry.tilesDown);
  const double row = (SizeOfRows(mosaic, kind, rows, {}) - empty) / rows;
  const double estimate = empty + row * geometry.tilesDown;
  if (below.isNull()) return estimate;
  QRect middle(QPoint(), below.size().boundedTo(kMostPixels));
  middle.moveCenter(below.rect().center());
  const double sample = SizeOfRows(mosaic, kind, 0, below.copy(middle)) - empty;
  return estimate + sample * Area(below.size()) / Area(middle.size());
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

QByteArray EncodePicture(const QImage& picture, const char* format, int quality) {
  QBuffer buffer;
  QImageWriter writer(&buffer, format);
  writer.setQuality(quality);
  if (!writer.write(picture)) {
    throw StudioError("$$$/Studio/Export/NotEncoded=a picture cannot be encoded as %1",
                      QString(format).toUpper());
  }
  return buffer.data();
}
