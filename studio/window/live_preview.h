#pragma once

#include <QFutureWatcher>
#include <QTimer>
#include <memory>

#include "studio/mosaic/preview.h"
#include "studio/window/canvas.h"

/// While one lives, the canvas shows the mosaic that OK in the dialog would build now, in place of
/// the artwork; afterwards the artwork again. Changes that come while a preview is drawn lead to
/// one more. While no mosaic can be made, the artwork shows.
class LivePreview {
 public:
  /// The canvas must outlive it. The reduction of the picture is made on another thread; the first
  /// preview waits for it.
  LivePreview(Canvas& canvas, ArtworkPtr artwork, const MosaicChoices& asked);
  ~LivePreview();

  /// Draws later, from the event loop.
  void Follow(const MosaicChoices& newChoices);

 private:
  using ReductionPtr = std::shared_ptr<const Reduction>;  // null when there was no memory

  void Draw();
  void ShowArtwork() noexcept;

  Canvas& canvas;
  const ArtworkPtr artwork;
  MosaicChoices choices;
  QTimer timer;
  QFutureWatcher<ReductionPtr> reduction;
};
