#include "studio/window/picture_window.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QScreen>

#include "studio/base/text.h"

namespace {

constexpr QSize kFirstSize(900, 640);
constexpr QSize kFrameAllowance(16, 48);  // what a window manager puts around a window

}  // namespace

PictureWindow::PictureWindow(const ArtworkPtr& artwork, const MosaicChoices& asked,
                             qtui::QtPresenter& presenter)
    : canvas(new Canvas), preview(*canvas, artwork, asked) {
  setObjectName("picture");
  setWindowTitle(
      Text("$$$/Studio/TitleWithPicture=%1 — Tesserae Studio", QFileInfo(artwork->path).fileName())
          .remove("[*]"));
  setCentralWidget(canvas);
  resize(kFirstSize.boundedTo(screen()->availableGeometry().size() - kFrameAllowance));
  canvas->Show(artwork);
  show();
  activateWindow();
  QCoreApplication::processEvents();  // lays the canvas out
  presenter.OpenBeside(canvas->ArtOnScreen());
}
