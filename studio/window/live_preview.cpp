#include "studio/window/live_preview.h"

#include <QtConcurrentRun>
#include <utility>

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
  canvas.Show(artwork);
}

void LivePreview::Follow(const MosaicChoices& newChoices) {
  choices = newChoices;
  if (reduction.isFinished()) timer.start();
}

void LivePreview::Draw() try {
  const ReductionPtr source = reduction.result();
  if (!source) return;
  canvas.Show(WithMosaic(*artwork, source->Preview(artwork->picture, choices)));
} catch (const std::exception&) {
  canvas.Show(artwork);
}
