#include "studio/window/live_preview.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QScreen>
#include <QtConcurrentRun>
#include <utility>

#include "studio/base/text.h"

LivePreview::LivePreview(Canvas& canvas, ArtworkPtr artworkToBuildFrom, const MosaicChoices& asked)
    : canvas(canvas), artwork(std::move(artworkToBuildFrom)), choices(asked) {
  timer.setSingleShot(true);
  QObject::connect(&timer, &QTimer::timeout, &timer, [this] { Draw(); });
  QObject::connect(&reduction, &QFutureWatcherBase::finished, &timer, [this] { timer.start(); });
  reduction.setFuture(QtConcurrent::run([shared = artwork]() -> ReductionPtr {
    try {
      return std::make_shared<const Reduction>(shared->picture);
    } catch (const std::exception&) {
      return nullptr;
    }
  }));
}

LivePreview::~LivePreview() {
  reduction.cancel();  // does not start if it still waits for a thread
  ShowArtwork();
}

void LivePreview::Sync(const MosaicChoices& newChoices) {
  choices = newChoices;
  if (reduction.isFinished()) timer.start();
}

void LivePreview::Draw() {
  const ReductionPtr source = reduction.result();
  if (!source) return;
  try {
    canvas.Show(WithMosaic(*artwork, source->Preview(artwork->picture, choices)));
  } catch (const std::exception&) {
    ShowArtwork();
  }
}

void LivePreview::ShowArtwork() noexcept {
  try {
    canvas.Show(artwork);
  } catch (const std::exception&) {
    // After bad_alloc the canvas stays empty until the next artwork is shown.
  }
}

PreviewWindow::PreviewWindow(const ArtworkPtr& artwork, const MosaicChoices& asked,
                             qtui::QtPresenter& presenter)
    : canvas(new Canvas), preview(*canvas, artwork, asked) {
  constexpr QSize kFirstSize(900, 640);
  constexpr QSize kFrame(16, 48);  // around a window, at most
  setObjectName("picture");
  setWindowTitle(
      Text("$$$/Studio/TitleWithPicture=%1 — Tesserae Studio", QFileInfo(artwork->path).fileName())
          .remove("[*]"));
  setCentralWidget(canvas);
  resize(kFirstSize.boundedTo(screen()->availableGeometry().size() - kFrame));
  canvas->Show(artwork);
  show();
  activateWindow();
  QCoreApplication::processEvents();  // lays the canvas out
  presenter.OpenBeside(canvas->ArtOnScreen());
}
