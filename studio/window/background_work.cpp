#include "studio/window/background_work.h"

#include <QEvent>
#include <QEventLoop>
#include <QFileInfo>
#include <QFutureWatcher>
#include <QLabel>
#include <QPointer>
#include <QProgressDialog>
#include <QPushButton>
#include <QShortcut>
#include <QTimer>
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

namespace {

constexpr int kQuietTime = 500;  // ms

/// Shows the progress. Emits canceled on Cancel, Escape, and when either window is closed; stays
/// open until the work has stopped.
class WorkDialog final : public QProgressDialog {
 public:
  WorkDialog(QWidget& window, const QString& text, int steps)
      : QProgressDialog(&window),
        label(new QLabel(text)),
        button(new QPushButton(Text("$$$/Studio/Progress/Cancel=Cancel"))) {
    setObjectName("progress");
    setWindowTitle(window.windowTitle().remove("[*]"));
    window.installEventFilter(this);
    setAutoReset(false);
    setMinimumDuration(0);
    setMinimumWidth(fontMetrics().averageCharWidth() * 52);
    setRange(0, steps);
    label->setTextFormat(Qt::PlainText);
    setLabel(label);
    setCancelButton(button);
    // setCancelButton adds an Escape shortcut each time; two make Escape ambiguous. Without
    // shortcuts Escape calls reject(), as in any dialog.
    qDeleteAll(findChildren<QShortcut*>());
    disconnect(this, SIGNAL(canceled()), this, SLOT(cancel()));  // which would hide it
    connect(this, &QProgressDialog::canceled, this, [this] {
      label->setText(Text("$$$/Studio/Progress/Stopping=Cancelling…"));
      button->hide();
    });
  }

  void reject() override { emit canceled(); }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Close) emit canceled();
    return false;
  }

 private:
  QLabel* const label;
  QPushButton* const button;
};

/// Blocks a window's input, but not its closing, which a modal dialog would block too.
class DisabledWindow {
 public:
  explicit DisabledWindow(QWidget& disabled) : window(disabled), focus(disabled.focusWidget()) {
    window.setEnabled(false);
  }
  ~DisabledWindow() {
    window.setEnabled(true);
    if (focus) focus->setFocus();
  }
  Q_DISABLE_COPY(DisabledWindow)

 private:
  QWidget& window;
  const QPointer<QWidget> focus;
};

/// Returns what `work` returns: whether it is complete. Cancelling asks it to stop, by the promise,
/// and waits until it has. With 0 `steps` the dialog shows that something is done, but not how far.
bool DoInBackground(QWidget& window, const QString& label, int steps,
                    const std::function<bool(QPromise<void>&)>& work) {
  QEventLoop loop;
  bool isComplete = false;
  QFutureWatcher<void> watcher;
  QObject::connect(&watcher, &QFutureWatcherBase::finished, &loop, &QEventLoop::quit);
  watcher.setFuture(QtConcurrent::run([&](QPromise<void>& promise) {
    promise.setProgressRange(0, steps);
    try {
      isComplete = work(promise);
    } catch (...) {
      // Qt would lose the exception's class. Stopped work may end with one of its own.
      if (!promise.isCanceled()) promise.setException(std::current_exception());
    }
  }));
  QTimer::singleShot(kQuietTime, &loop, &QEventLoop::quit);
  loop.exec(QEventLoop::ExcludeUserInputEvents);
  if (!watcher.isFinished()) {
    const DisabledWindow disabled(window);  // before the dialog, which would be disabled with it
    WorkDialog dialog(window, label, steps);
    QObject::connect(&watcher, &QFutureWatcherBase::progressValueChanged, &dialog,
                     &QProgressDialog::setValue);
    QObject::connect(&dialog, &WorkDialog::canceled, &watcher, &QFutureWatcherBase::cancel);
    dialog.setValue(watcher.progressValue());
    dialog.show();
    loop.exec();
    if (!watcher.isFinished()) watcher.cancel();  // also when the program is ending
  }
  watcher.waitForFinished();  // throws what the work threw
  return isComplete && !watcher.isCanceled();
}

/// Passes on how many rows are done, and whether to go on.
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
