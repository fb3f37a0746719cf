#include <QClipboard>
#include <QDropEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeData>
#include <QUrl>

#include "studio/base/studio_error.h"
#include "studio/window/background_work.h"
#include "studio/window/captions.h"
#include "studio/window/file_dialogs.h"
#include "studio/window/settings.h"
#include "studio/window/studio_window.h"

namespace {

/// Null for a file that is not an SVG document, or one without images.
std::shared_ptr<const SvgDrawing> DrawingWithImages(const QString& path) {
  if (!path.endsWith(".svg", Qt::CaseInsensitive)) return nullptr;
  try {
    auto drawing = std::make_shared<const SvgDrawing>(SvgDrawing::Read(path));
    return drawing->Images().empty() ? nullptr : drawing;
  } catch (const StudioError&) {
    return nullptr;  // reading the file as a picture then reports the error
  }
}

/// The local files that are dragged, dropped or on the clipboard.
QStringList FilesIn(const QMimeData& data) {
  QStringList files;
  for (const QUrl& url : data.urls())
    if (url.isLocalFile()) files += url.toLocalFile();
  return files;
}

/// Reports that only the first of the dropped files was opened.
QString OnlyFirstText(const QStringList& paths) {
  const QString first = QFileInfo(paths[0]).fileName();
  if (paths.size() == 2) {
    return Text(
        "$$$/Studio/Status/OnlyFirst=Opened %1. Only one picture can be dropped at a time; %2 was "
        "not opened.",
        first, QFileInfo(paths[1]).fileName());
  }
  const auto others = uint64_t(paths.size() - 1);
  return PluralText(
      "$$$/Studio/Status/OnlyFirstOfMany=Opened %1. Only one picture can be dropped at a time; %2 "
      "other was not opened.",
      "Opened %1. Only one picture can be dropped at a time; %2 others were not opened.", others,
      first, NumberForUser(double(others)));
}

/// The picture that the data contain. Throws StudioError when there is no memory for it.
std::optional<Picture> PictureIn(const QMimeData& data) {
  if (!data.hasImage()) return std::nullopt;
  return Picture(qvariant_cast<QImage>(data.imageData()));
}

/// Only a copy, since an application that offers a file deletes it after a move.
void AcceptCopy(QDropEvent& event) {
  event.setDropAction(Qt::CopyAction);
  event.accept();
}

}  // namespace

void StudioWindow::FillRecentMenu() {
  const QStringList paths = settings::RecentPictures();
  actions.recent->clear();
  for (const QString& path : paths) {
    QAction* const action =
        actions.recent->addAction(FileCaption(path), this, [this, path] { OpenPicture(path); });
    action->setToolTip(FileToolTip(path));
  }
  actions.recent->setToolTipsVisible(true);
  actions.recent->setEnabled(!paths.isEmpty());
  startPage->ShowRecent(paths);
  if (paths.isEmpty()) return;
  actions.recent->addSeparator();
  actions.recent->addAction(Text("$$$/Studio/Menu/ClearRecent=&Clear List"), this, [this] {
    settings::ClearRecentPictures();
    FillRecentMenu();
  });
}

bool StudioWindow::AskForPicture() {
  const QStringList recent = settings::RecentPictures();
  const QString folder = recent.isEmpty() ? QString() : QFileInfo(recent.front()).absolutePath();
  const QString path = ::AskForPicture(*this, folder);
  return !path.isEmpty() && OpenPicture(path);
}

bool StudioWindow::OpenPicture(const QString& path) {
  return Do(Text("$$$/Studio/Error/Open=The picture cannot be opened."), [&] {
    if (const auto drawing = DrawingWithImages(path)) {
      const auto image = AskForImage(*this, *drawing);
      if (!image) return TellOfCancel();
      if (*image) return PlaceImage(drawing, **image);
    }
    std::optional<Picture> picture = ReadPicture(*this, path);
    if (!picture) return TellOfCancel();
    const bool isHeld = picture->IsHeld();
    PlacePicture(QFileInfo(path).absoluteFilePath(), std::move(*picture));
    if (!isHeld) {
      Tell(
          Text("$$$/Studio/Status/Reduced=The picture is very large: it is shown reduced, and each "
               "mosaic is built from its file."));
    }
    settings::AddRecentPicture(path);
    FillRecentMenu();
    return true;
  });
}

bool StudioWindow::OpenImage(const QString& path, const QString& id) {
  return Do(Text("$$$/Studio/Error/Open=The picture cannot be opened."), [&] {
    const auto drawing = std::make_shared<const SvgDrawing>(SvgDrawing::Read(path));
    return PlaceImage(drawing, drawing->Image(id));
  });
}

bool StudioWindow::PlaceImage(const std::shared_ptr<const SvgDrawing>& drawing,
                              const ImageElement& image) {
  const auto placed = ReadImage(*this, drawing, image, isSizeUnknown);
  if (!placed) return TellOfCancel();
  Artwork artwork = *placed->artwork;
  // The folder is where to export to; the end tells the images of a drawing apart.
  const auto number = &image - drawing->Images().data() + 1;
  artwork.path = QFileInfo(drawing->Path()).absoluteFilePath() + '#' +
                 (image.Id().isEmpty() ? QString::number(number) : image.Id());
  placedImages.insert_or_assign(artwork.path, *placed);
  document.Change(Text("$$$/Studio/Undo/Place=Place Picture"),
                  std::make_shared<const Artwork>(std::move(artwork)));
  ShowDocument();
  settings::AddRecentPicture(drawing->Path());
  FillRecentMenu();
  return true;
}

void StudioWindow::PlacePicture(const QString& path, Picture picture) {
  document.Change(Text("$$$/Studio/Undo/Place=Place Picture"),
                  Place(path, std::move(picture), isSizeUnknown));
  ShowDocument();
}

void StudioWindow::Paste() {
  const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
  const QString file = data ? FilesIn(*data).value(0) : QString();
  if (!file.isEmpty()) {
    OpenPicture(file);
    return;
  }
  Do(Text("$$$/Studio/Error/Open=The picture cannot be opened."), [&] {
    std::optional<Picture> picture = data ? PictureIn(*data) : std::nullopt;
    if (picture) {
      PlacePicture(Text("$$$/Studio/Paste/Name=Pasted picture %1", QString::number(++pasted)),
                   std::move(*picture));
    } else {
      Tell(Text("$$$/Studio/Status/NothingToPaste=There is no picture on the clipboard."));
    }
    return picture.has_value();
  });
}

std::optional<Picture> StudioWindow::ReadAgain(const QString& path) {
  return ReadPicture(*this, path);
}

void StudioWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (isBusy || FilesIn(*event->mimeData()).isEmpty()) return;
  AcceptCopy(*event);
  SetDropHighlight(true);
}

void StudioWindow::dragLeaveEvent(QDragLeaveEvent*) {
  SetDropHighlight(false);
}

void StudioWindow::SetDropHighlight(bool isHighlighted) {
  startPage->SetDropHighlight(isHighlighted);
  canvas->SetDropHighlight(isHighlighted);
}

void StudioWindow::dropEvent(QDropEvent* event) {
  SetDropHighlight(false);
  const QStringList paths = FilesIn(*event->mimeData());
  if (paths.isEmpty()) return;
  AcceptCopy(*event);
  // Later, as the other application waits for the answer to the drop.
  const auto open = [this, paths] {
    if (OpenPicture(paths.front()) && paths.size() > 1) Tell(OnlyFirstText(paths));
  };
  QMetaObject::invokeMethod(this, open, Qt::QueuedConnection);
}
