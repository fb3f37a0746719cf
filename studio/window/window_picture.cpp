#include "studio/window/window_picture.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDeadlineTimer>

#include "studio/window/studio_window.h"

namespace {

constexpr QSize kSize(1080, 760);
constexpr int kActivationTimeout = 2000;  // ms

}  // namespace

QByteArray WindowPicture(const ArtworkPtr& artwork) {
  StudioWindow window{QString()};
  window.resize(kSize);
  window.Show(artwork);
  window.show();
  window.activateWindow();
  const QDeadlineTimer deadline(kActivationTimeout);
  do {
    QCoreApplication::processEvents();
  } while (!window.isActiveWindow() && !deadline.hasExpired());

  QBuffer png;
  png.open(QIODevice::WriteOnly);
  window.grab().save(&png, "PNG");
  window.CloseModule();
  return png.data();
}
