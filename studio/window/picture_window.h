#pragma once

#include <QMainWindow>

#include "platform/qt/qt_presenter.h"
#include "studio/window/canvas.h"
#include "studio/window/live_preview.h"

/// A window without menus that shows a picture while the dialog is open, and the mosaic that OK
/// would build. Shows itself; the dialog opens beside the picture.
class PictureWindow final : public QMainWindow {
 public:
  PictureWindow(const ArtworkPtr& artwork, const MosaicChoices& asked,
                qtui::QtPresenter& presenter);

  /// Previews the mosaic of these choices.
  void Sync(const MosaicChoices& choices) { preview.Sync(choices); }

 private:
  Canvas* const canvas;
  LivePreview preview;
};
