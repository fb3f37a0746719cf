#include <QBuffer>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeData>
#include <algorithm>
#include <cmath>

#include "studio/base/studio_error.h"
#include "studio/drawing/drawing_export.h"
#include "studio/export/mosaic_export.h"
#include "studio/window/background_work.h"
#include "studio/window/file_dialogs.h"
#include "studio/window/png_size_dialog.h"
#include "studio/window/settings.h"
#include "studio/window/studio_window.h"

namespace {

constexpr qint64 kMostSvgTiles = 250'000;  // on the clipboard
constexpr double kMostPixels = 16e6;       // on the clipboard

QString ExportFailure() {
  return Text("$$$/Studio/Error/Export=The mosaic cannot be exported.");
}

/// Null when the user cancelled. Throws StudioError.
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

}  // namespace

bool StudioWindow::AskForExport() {
  const QFileInfo source(Shown()->path);
  const QString former = settings::kExportFolder.Get();
  const QString folder = QFileInfo(former).isDir() ? former : source.absolutePath();
  const ExportKind* const lastKind = FindExportKind(settings::kExportEnding.Get());
  const char* const ending = (lastKind ? *lastKind : ExportKinds().front()).ending;
  QString path = folder + '/' +
                 Text("$$$/Studio/Export/FileName=%1 mosaic", source.completeBaseName()) + ending;

  std::optional<bool> isDone = false;  // nothing after a failure, which opens the dialog again
  do {
    Do(ExportFailure(), [&] {
      isDone.reset();
      const QString chosen = ::AskForExport(*this, path);
      if (!chosen.isEmpty()) path = chosen;
      isDone = !chosen.isEmpty() && ExportTo(path);
      return true;
    });
  } while (!isDone);
  return *isDone;
}

bool StudioWindow::ExportTo(const QString& path) {
  LastExport how{Shown()->path, path, 0};
  if (ExportKindOf(path).hasPixels) {
    const auto pixelsPerPoint = AskForPngScale(*this, Shown()->mosaic->geometry);
    if (!pixelsPerPoint) return false;
    how.pixelsPerPoint = *pixelsPerPoint;
  }
  return Write(how);
}

void StudioWindow::ExportAgain() {
  const bool isSame = lastExport && lastExport->picture == Shown()->path;
  if (!isSame) {
    AskForExport();
    return;
  }
  Do(ExportFailure(), [this] { return Write(*lastExport); });
}

bool StudioWindow::Write(LastExport how) {
  const auto image = placedImages.find(Shown()->path);
  const bool isDrawing =
      image != placedImages.end() && &ExportKindOf(how.path) == FindExportKind(".svg");
  const double bytes =
      isDrawing ? EstimatedBytes(*image->second.drawing,
                                 {{image->second.image, image->second.placement, Shown()->mosaic}})
                : EstimatedBytes(*Shown()->mosaic, ExportKindOf(how.path), how.pixelsPerPoint);
  if (bytes >= kLargeExport && !boxes.AskBeforeLargeExport(bytes)) return false;
  const bool isDone = isDrawing ? ExportDrawing(*this, image->second, Shown()->mosaic, how.path)
                                : ExportMosaic(*this, *Shown(), how.path, how.pixelsPerPoint);
  if (!isDone) return TellOfCancel();
  document.NoteExport();
  setWindowModified(!document.Unexported().empty());
  settings::kExportFolder.Set(QFileInfo(how.path).absolutePath());
  settings::kExportEnding.Set(ExportKindOf(how.path).ending);
  Tell(Text("$$$/Studio/Status/Exported=Exported %1", QDir::toNativeSeparators(how.path)));
  lastExport = std::move(how);
  return true;
}

void StudioWindow::Copy() {
  Do(Text("$$$/Studio/Error/Copy=The mosaic cannot be copied."), [&] {
    std::unique_ptr<QMimeData> data = MimeDataOf(*this, *Shown());
    if (!data) return TellOfCancel();
    QGuiApplication::clipboard()->setMimeData(data.release());  // which owns them from now on
    Tell(Text("$$$/Studio/Status/Copied=Copied."));
    return true;
  });
}
