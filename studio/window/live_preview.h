#pragma once

#include <QFutureWatcher>
#include <QMainWindow>
#include <QTimer>
#include <memory>

#include "platform/qt/qt_presenter.h"
#include "studio/mosaic/preview.h"
#include "studio/window/canvas.h"

/// Makes a canvas show the mosaic that OK in the dialog would build. The window creates one per
/// dialog, on the user-interface thread; the destructor makes the canvas show the artwork again.
/// The canvas also shows the artwork while no mosaic can be built from the choices.
class LivePreview {
 public:
  /// The canvas must outlive the preview. Another thread reduces the picture; the first preview is
  /// shown when it has finished.
  LivePreview(Canvas& canvas, ArtworkPtr artwork, const MosaicChoices& asked);
  ~LivePreview();

  /// Shows the mosaic of these choices, later, from the event loop.
  void Sync(const MosaicChoices& newChoices);

 private:
  using ReductionPtr = std::shared_ptr<const Reduction>;  // null after bad_alloc

  void Draw();
  void ShowArtwork() noexcept;

  Canvas& canvas;
  const ArtworkPtr artwork;
  MosaicChoices choices;
  QTimer timer;
  QFutureWatcher<ReductionPtr> reduction;
};

/// A window without menus that shows a picture while the dialog is open, and the mosaic that OK
/// would build. Shows itself; the dialog opens beside the picture.
class PreviewWindow final : public QMainWindow {
 public:
  PreviewWindow(const ArtworkPtr& artwork, const MosaicChoices& asked,
                qtui::QtPresenter& presenter);

  /// Previews the mosaic of these choices.
  void Sync(const MosaicChoices& choices) { preview.Sync(choices); }

 private:
  Canvas* const canvas;
  LivePreview preview;
};
