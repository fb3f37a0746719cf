#include "studio/window/background_work.h"

#include <QFileInfo>
#include <QtConcurrentRun>
#include <exception>
#include <functional>
#include <utility>

#include "studio/base/output.h"
#include "studio/base/text.h"
#include "studio/drawing/drawing_export.h"
#include "studio/drawing/image_source.h"
#include "studio/export/mosaic_export.h"
#include "studio/mosaic/mosaic_job.h"
#include "studio/mosaic/preview.h"
#include "studio/window/work_dialog.h"

namespace {

/// Runs `work` on another thread and returns its result: whether it is complete. Cancelling sets
/// the promise's flag, and this function waits until the work has stopped.
bool DoInBackground(QWidget& window, const QString& label, int steps,
                    const std::function<bool(QPromise<void>&)>& work) {
  WorkDialog dialog(window, label, steps);
  bool isComplete = false;
  QFuture<void> future = QtConcurrent::run([&](QPromise<void>& promise) {
    promise.setProgressRange(0, steps);
    try {
      isComplete = work(promise);
    } catch (...) {
      // Qt would lose the exception's class. Cancelled work may end with an exception of its own.
      if (!promise.isCanceled()) promise.setException(std::current_exception());
    }
  });
  dialog.WaitFor(future);
  return isComplete && !future.isCanceled();
}

/// Reports the rows that are done and returns whether the work was not cancelled.
GoOn ReportTo(QPromise<void>& promise) {
  return [&promise](int rowsDone) {
    promise.setProgressValue(rowsDone);
    return !promise.isCanceled();
  };
}

}  // namespace

std::optional<Picture> ReadPicture(QWidget& window, const QString& path) {
  std::optional<Picture> picture;
  const QString label = Text("$$$/Studio/Progress/Opening=Opening %1…", QFileInfo(path).fileName());
  const bool isComplete = DoInBackground(window, label, 0, [&](QPromise<void>& promise) {
    const auto isStopped = [&] { return promise.isCanceled(); };
    picture = Picture::Open(PictureFile(path), isStopped);
    MakeShowable(*picture, isStopped);
    return true;
  });
  return isComplete ? std::move(picture) : std::nullopt;
}

std::optional<PlacedImage> ReadImage(QWidget& window,
                                     const std::shared_ptr<const SvgDrawing>& drawing,
                                     const ImageElement& image, bool isSizeUnknown) {
  std::optional<PlacedImage> placed;
  const QString label = Text("$$$/Studio/Progress/Opening=Opening %1…", image.Name());
  const bool isComplete = DoInBackground(window, label, 0, [&](QPromise<void>& promise) {
    placed.emplace(
        PlacedImage::Read(drawing, image, isSizeUnknown, [&] { return promise.isCanceled(); }));
    return true;
  });
  return isComplete ? std::move(placed) : std::nullopt;
}

std::optional<Mosaic> BuildMosaic(QWidget& window, const Picture& picture,
                                  const MosaicChoices& choices) {
  MosaicJob job(picture, choices);
  Mosaic mosaic;
  job.Add(mosaic);
  const bool isComplete = DoInBackground(
      window, Text("$$$/Studio/Progress/Building=Building the mosaic…"), job.Geometry().tilesDown,
      [&](QPromise<void>& promise) { return job.Run(ReportTo(promise)); });
  if (!isComplete) return std::nullopt;
  return mosaic;
}

bool WriteMosaic(QWidget& window, const QString& label, const Mosaic& mosaic,
                 const ExportKind& kind, double pixelsPerPoint, QIODevice& device) {
  const int rows = mosaic.geometry.tilesDown;
  return DoInBackground(window, label, rows, [&](QPromise<void>& promise) {
    const auto sink = kind.makeSink(device, mosaic.geometry, mosaic.below, pixelsPerPoint);
    return ::WriteMosaic(mosaic, *sink, ReportTo(promise));
  });
}

bool ExportMosaic(QWidget& window, const Artwork& artwork, const QString& path,
                  double pixelsPerPoint) {
  OutputSet outputs;
  outputs.Protect(artwork.path);
  QIODevice& device = outputs.Add(path);
  const QString label =
      Text("$$$/Studio/Progress/Exporting=Exporting %1…", QFileInfo(path).fileName());
  const bool isComplete =
      WriteMosaic(window, label, *artwork.mosaic, ExportKindOf(path), pixelsPerPoint, device);
  if (isComplete) outputs.Commit();
  return isComplete;
}

bool ExportDrawing(QWidget& window, const PlacedImage& image,
                   const std::shared_ptr<const Mosaic>& mosaic, const QString& path) {
  OutputSet outputs;
  const QString linked = LinkedFile(*image.drawing, *image.image);
  if (!linked.isEmpty()) outputs.Protect(linked);
  QIODevice& device = outputs.Add(path);
  const QString label =
      Text("$$$/Studio/Progress/Exporting=Exporting %1…", QFileInfo(path).fileName());
  const bool isComplete =
      DoInBackground(window, label, mosaic->geometry.tilesDown, [&](QPromise<void>& promise) {
        return WriteDrawing(*image.drawing, {{image.image, image.placement, mosaic}}, device,
                            ReportTo(promise));
      });
  if (isComplete) outputs.Commit();
  return isComplete;
}
