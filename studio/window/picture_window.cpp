#include "studio/window/picture_window.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QScreen>

#include "studio/base/text.h"

PictureWindow::PictureWindow(const ArtworkPtr& artwork, const MosaicChoices& asked,
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
