#include "studio/window/clipboard.h"

#include <QBuffer>
#include <QUrl>
#include <algorithm>
#include <cmath>

#include "studio/base/studio_error.h"
#include "studio/export/mosaic_export.h"
#include "studio/window/background_work.h"

namespace {

constexpr qint64 kMostSvgTiles = 250'000;
constexpr double kMostPixels = 16e6;

}  // namespace

std::unique_ptr<QMimeData> MimeDataOf(QWidget& window, const Artwork& artwork) {
  auto data = std::make_unique<QMimeData>();
  if (!artwork.mosaic) {
    data->setImageData(artwork.picture.Pixels());
    return data;
  }
  const auto write = [&](const char* ending, double pixelsPerPoint) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    const bool isComplete =
        WriteMosaic(window, Text("$$$/Studio/Progress/Copying=Copying the mosaic…"),
                    *artwork.mosaic, ExportKindOf(ending), pixelsPerPoint, buffer);
    return isComplete ? buffer.data() : QByteArray();
  };
  const MosaicGeometry& geometry = artwork.mosaic->geometry;
  if (qint64(geometry.tilesAcross) * geometry.tilesDown <= kMostSvgTiles) {
    const QByteArray svg = write(".svg", 0);
    if (svg.isEmpty()) return nullptr;
    data->setData("image/svg+xml", svg);
  }
  const double most = std::sqrt(kMostPixels / (geometry.size.width() * geometry.size.height()));
  const QByteArray png = write(".png", std::min(most, PngScale(geometry)));
  if (png.isEmpty()) return nullptr;
  const QImage picture = QImage::fromData(png);
  if (picture.isNull()) throw StudioError(kNoMemory);
  data->setImageData(picture);
  return data;
}

QStringList FilesIn(const QMimeData& data) {
  QStringList files;
  for (const QUrl& url : data.urls())
    if (url.isLocalFile()) files += url.toLocalFile();
  return files;
}

std::optional<Picture> PictureIn(const QMimeData& data) {
  if (!data.hasImage()) return std::nullopt;
  return Picture(qvariant_cast<QImage>(data.imageData()));
}
