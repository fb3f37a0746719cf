#include "studio/window/studio_window.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QMimeData>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <algorithm>
#include <cmath>

#include "platform/qt/announcement.h"
#include "studio/base/studio_error.h"
#include "studio/caller/dialog_summary.h"
#include "studio/export/mosaic_export.h"
#include "studio/window/background_work.h"
#include "studio/window/captions.h"
#include "studio/window/clipboard.h"
#include "studio/window/file_dialogs.h"
#include "studio/window/image_choice.h"
#include "studio/window/png_size_dialog.h"
#include "studio/window/settings.h"

namespace {

constexpr QSize kFirstSize(1080, 760);
constexpr QSize kFrameAllowance(16, 48);  // what a window manager puts around a window
constexpr int kMessageTime = 6000;        // ms
constexpr double kLargeExport = 500e6;    // bytes
constexpr Qt::Key kCompareKey = Qt::Key_F8;

QString ExportFailure() {
  return Text("$$$/Studio/Error/Export=The mosaic cannot be exported.");
}

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

/// Only a copy, since an application that offers a file deletes it after a move.
void AcceptCopy(QDropEvent& event) {
  event.setDropAction(Qt::CopyAction);
  event.accept();
}

/// Restores the entries of the last dialog in the next one, and shows there why that is open again.
class EntryKeeper final : public qtui::DialogListener {
 public:
  /// `livePreview` may be null.
  EntryKeeper(const Picture& shown, const MosaicChoices& askedChoices, LivePreview* livePreview,
              DialogEntries firstEntries)
      : entries(std::move(firstEntries)),
        picture(shown),
        asked(askedChoices),
        preview(livePreview) {}

  void DialogOpening(nrvui::ui::UI_Dialog& dialog) override {
    notice = QStringList{notice, EnterAgain(dialog, entries)}.join(' ').trimmed();
    opened = EntriesIn(dialog);
    if (fieldAtFault != nullptr) FocusFirst(dialog, fieldAtFault);
  }
  std::optional<qtui::Summary> DialogChanged(
      const nrvui::ui::UI_Dialog& dialog,
      const std::optional<qtui::PendingEntry>& pending) override {
    entries = EntriesIn(dialog);
    const Forecast forecast = ForecastFor(dialog, asked, pending);
    if (preview != nullptr) preview->Sync(forecast.choices);
    if (!notice.isEmpty() && entries == opened && !pending) return qtui::Summary{notice, true};
    return SummaryFor(picture, forecast);
  }

  DialogEntries entries;
  QString notice;  // shown until the user changes something
  const char* fieldAtFault = nullptr;

 private:
  const Picture& picture;
  const MosaicChoices& asked;
  LivePreview* preview;
  std::optional<DialogEntries> opened;
};

}  // namespace

StudioWindow::StudioWindow(const QString& statePath, qtui::QtPresenter& presenter)
    : choicesFile(statePath),
      boxes(*this),
      presenter(presenter),
      actions(*this),
      pages(new QStackedWidget),
      summary(new QLabel) {
  setObjectName("studio");
  setAcceptDrops(true);
  startPage = new StartPage([this] { AskForPicture(); },
                            [this](const QString& path) { OpenPicture(path); });
  canvas = new Canvas;
  pages->addWidget(startPage);
  pages->addWidget(canvas);
  setCentralWidget(pages);
  summary->setObjectName("summary");
  statusBar()->addPermanentWidget(summary);
  statusBar()->setSizeGripEnabled(false);
  statusBar()->setContentsMargins(6, 0, 6, 0);
  MakeZoomMenu();
  Connect();
  FillRecentMenu();
  ShowDocument();
  if (!restoreGeometry(settings::kWindowGeometry.Get())) {
    resize(kFirstSize.boundedTo(screen()->availableGeometry().size() - kFrameAllowance));
  }
  try {
    Caller();  // now, so that the first dialog opens without delay
  } catch (const StudioError&) {
    // Asking for the dialog or the about box tries again and reports the reason.
  }
}

void StudioWindow::CloseModule() {
  if (const auto closing = std::exchange(caller, nullptr)) closing->Close();
}

void StudioWindow::Connect() {
  const auto on = [this](QAction* action, auto&& work) {
    connect(action, &QAction::triggered, this, std::forward<decltype(work)>(work));
  };
  on(actions.open, [this] { AskForPicture(); });
  on(actions.exportMosaic, [this] { AskForExport(); });
  on(actions.exportAgain, [this] { ExportAgain(); });
  on(actions.copy, [this] { Copy(); });
  on(actions.paste, [this] { Paste(); });
  on(actions.quit, [this] { close(); });
  on(actions.undo, [this] { Step(&Document::Undo); });
  on(actions.redo, [this] { Step(&Document::Redo); });
  on(actions.tesserae, [this] { Create({}); });
  on(actions.tesseraeAgain, [this] { Create(ConfirmedForShown()->entries); });
  on(actions.zoomIn, [this] { canvas->ZoomIn(); });
  on(actions.zoomOut, [this] { canvas->ZoomOut(); });
  on(actions.actualSize, [this] { canvas->SetZoom(1); });
  on(actions.fit, [this] { canvas->Fit(); });
  on(actions.about, [this] { ShowAbout(); });
  connect(actions.recent, &QMenu::aboutToShow, this, [this] { FillRecentMenu(); });
  presetMenu.emplace(*this, *actions.presets, choicesFile);
  auto& compare = *findChild<QToolBar*>()->widgetForAction(actions.compare);
  comparison.emplace(static_cast<QAbstractButton&>(compare), kCompareKey,
                     [this](bool isHeld) { canvas->SetComparing(isHeld); });
  canvas->WhenShown([this](const ArtworkPtr& shown) {
    summary->setText(shown ? SummaryText(*shown) : QString());
    actions.compare->setEnabled(shown && shown->mosaic);
  });
  canvas->WhenZoomed([this] { actions.zoom->setIconText(PercentText(canvas->Zoom())); });
}

void StudioWindow::MakeZoomMenu() {
  auto* const menu = new QMenu(this);
  for (const int percent : {25, 50, 100, 200, 400, 800}) {
    menu->addAction(PercentText(percent / 100.0), this,
                    [this, percent] { canvas->SetZoom(percent / 100.0); });
  }
  menu->addSeparator();
  menu->addAction(actions.fit);
  actions.zoom->setMenu(menu);
}

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

MosaicCaller& StudioWindow::Caller() {
  if (!caller) caller = std::make_unique<MosaicCaller>(boxes);
  return *caller;
}

void StudioWindow::ShowAbout() {
  Do(Text("$$$/Studio/Error/About=No information about the module is available."), [this] {
    Caller().ShowAbout();
    return true;
  });
}

bool StudioWindow::Do(const QString& failure, const std::function<bool()>& work) {
  if (isBusy) return false;
  const QScopedValueRollback busy(isBusy, true);
  const auto closeNow = qScopeGuard([this] {
    if (std::exchange(closesAfterWork, false)) QTimer::singleShot(0, this, &QWidget::close);
  });
  try {
    return work();
  } catch (const std::exception& error) {
    boxes.ShowError(failure, error);
    return false;
  }
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

const StudioWindow::Confirmed* StudioWindow::ConfirmedForShown() const {
  if (!Shown()) return nullptr;
  const auto found = confirmed.find({Shown()->path, Shown()->isSizeKnown});
  return found == confirmed.end() ? nullptr : &found->second;
}

std::optional<DialogEntries> StudioWindow::EntriesOfMosaic() const {
  const Confirmed* const made = ConfirmedForShown();
  if (!made) return std::nullopt;
  return EntriesForOtherPictures(made->entries, made->choices);
}

void StudioWindow::Create(const DialogEntries& entries) {
  Do(Text("$$$/Studio/Error/Create=The mosaic cannot be created."), [&] {
    const auto last = LastChoices();
    const ArtworkPtr shown = Shown();
    const Confirmed* const former = ConfirmedForShown();
    std::optional<Built> built = AskUntilBuilt(
        former ? ChoicesFor(*shown, last, former->choices) : ChoicesFor(*shown, last), entries);
    if (!built) return false;
    document.Change(Text("$$$/Studio/Undo/Create=Create Tesserae"),
                    WithMosaic(*shown, std::move(built->mosaic)));
    ShowDocument();
    const MosaicParameters& params = built->choices.params;
    const uint64_t count = uint64_t(params.tilesAcross) * params.tilesDown;
    Tell(PluralText("$$$/Studio/Status/Built=Built %1 tile in %2 s.", "Built %1 tiles in %2 s.",
                    count, NumberForUser(double(count)),
                    NumberForUser(std::round(built->seconds * 10) / 10)));
    KeepChoices(*ConfirmedForShown());
    return true;
  });
}

std::optional<MosaicChoices> StudioWindow::LastChoices() {
  if (lastChoices) return lastChoices;
  try {
    return choicesFile.Load().last;
  } catch (const StudioError&) {
    if (choicesFile.IsNamed()) throw;
    Tell(
        Text("$$$/Studio/Status/ChoicesUnreadable=Your last choices cannot be read. The dialog "
             "starts with the defaults."));
    return std::nullopt;
  }
}

void StudioWindow::KeepChoices(const Confirmed& made) {
  lastChoices = made.choices;
  try {
    choicesFile.Change([&](KeptChoices& kept) { kept.AddMosaic(made.choices, made.entries); });
  } catch (const StudioError&) {  // the mosaic is finished all the same
    Tell(Text("$$$/Studio/Status/ChoicesNotKept=Your choices cannot be saved."));
  }
}

std::optional<StudioWindow::Built> StudioWindow::AskUntilBuilt(const MosaicChoices& asked,
                                                               DialogEntries entries) {
  const ArtworkPtr shown = Shown();
  std::optional<LivePreview> preview;
  if (actions.preview->isChecked()) preview.emplace(*canvas, shown, asked);
  EntryKeeper keeper(shown->picture, asked, preview ? &*preview : nullptr, std::move(entries));
  presenter.AddListener(keeper);
  const auto removeKeeper = qScopeGuard([&] { presenter.RemoveListener(keeper); });
  for (std::optional<QPoint> reopensAt;; reopensAt = presenter.LastPosition()) {
    MosaicChoices choices = asked;
    if (!Ask(choices, reopensAt)) return std::nullopt;
    confirmed[{shown->path, shown->isSizeKnown}] = {choices, keeper.entries};
    actions.tesseraeAgain->setEnabled(true);
    QElapsedTimer clock;
    clock.start();
    try {
      if (auto mosaic = BuildMosaic(*this, shown->picture, choices)) {
        return Built{choices, std::move(*mosaic), double(clock.elapsed()) / 1000};
      }
      if (closesAfterWork) return std::nullopt;
      keeper.notice = Text("$$$/Studio/Line/Stopped=The mosaic was cancelled.");
    } catch (const ChoiceError& error) {
      keeper.notice = Sentence(error.what());
      keeper.fieldAtFault = error.Field();
    } catch (const std::exception& error) {
      keeper.notice = Sentence(ReasonText(error));
    }
  }
}

bool StudioWindow::Ask(MosaicChoices& choices, const std::optional<QPoint>& reopensAt) {
  const QVariant moved = settings::kDialogPosition.Get();
  presenter.OpenBeside(canvas->ArtOnScreen());
  presenter.OpenAt(reopensAt || !moved.isValid() ? reopensAt : moved.toPoint());
  presenter.ShareInputWith(this);
  actions.blocked->setEnabled(false);
  const auto unblock = qScopeGuard([this] {
    actions.blocked->setEnabled(true);
    presenter.ShareInputWith(nullptr);
    if (presenter.WasMoved()) settings::kDialogPosition.Set(presenter.LastPosition());
  });
  const nrvui::ui::InstalledPresenter installed(presenter);
  return Caller().Ask(choices.params, choices.state);
}

bool StudioWindow::AskForExport() {
  const QFileInfo source(Shown()->path);
  const QString former = settings::kExportFolder.Get();
  const QString folder = QFileInfo(former).isDir() ? former : source.absolutePath();
  const ExportKind* const lastKind = FindExportKind(settings::kExportEnding.Get());
  const char* const ending = (lastKind ? *lastKind : ExportKinds().front()).ending;
  QString path = folder + '/' +
                 Text("$$$/Studio/Export/FileName=%1 mosaic", source.completeBaseName()) + ending;

  std::optional<bool> isDone = false;  // nothing after a failure, which opens the dialog again
  do {
    Do(ExportFailure(), [&] {
      isDone.reset();
      const QString chosen = ::AskForExport(*this, path);
      if (!chosen.isEmpty()) path = chosen;
      isDone = !chosen.isEmpty() && ExportTo(path);
      return true;
    });
  } while (!isDone);
  return *isDone;
}

bool StudioWindow::ExportTo(const QString& path) {
  LastExport how{Shown()->path, path, 0};
  if (ExportKindOf(path).hasPixels) {
    const auto pixelsPerPoint = AskForPngScale(*this, Shown()->mosaic->geometry);
    if (!pixelsPerPoint) return false;
    how.pixelsPerPoint = *pixelsPerPoint;
  }
  return Write(how);
}

void StudioWindow::ExportAgain() {
  const bool isSame = lastExport && lastExport->picture == Shown()->path;
  if (!isSame) {
    AskForExport();
    return;
  }
  Do(ExportFailure(), [this] { return Write(*lastExport); });
}

bool StudioWindow::Write(LastExport how) {
  const double bytes = EstimatedBytes(*Shown()->mosaic, ExportKindOf(how.path));
  if (bytes >= kLargeExport && !boxes.AskBeforeLargeExport(bytes)) return false;
  const auto image = placedImages.find(Shown()->path);
  const bool isDrawing =
      image != placedImages.end() && &ExportKindOf(how.path) == FindExportKind(".svg");
  const bool isDone = isDrawing ? ExportDrawing(*this, image->second, Shown()->mosaic, how.path)
                                : ExportMosaic(*this, *Shown(), how.path, how.pixelsPerPoint);
  if (!isDone) return TellOfCancel();
  document.NoteExport();
  setWindowModified(!document.Unexported().empty());
  settings::kExportFolder.Set(QFileInfo(how.path).absolutePath());
  settings::kExportEnding.Set(ExportKindOf(how.path).ending);
  Tell(Text("$$$/Studio/Status/Exported=Exported %1", QDir::toNativeSeparators(how.path)));
  lastExport = std::move(how);
  return true;
}

void StudioWindow::Copy() {
  Do(Text("$$$/Studio/Error/Copy=The mosaic cannot be copied."), [&] {
    std::unique_ptr<QMimeData> data = MimeDataOf(*this, *Shown());
    if (!data) return TellOfCancel();
    QGuiApplication::clipboard()->setMimeData(data.release());  // which owns them from now on
    Tell(Text("$$$/Studio/Status/Copied=Copied."));
    return true;
  });
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

bool StudioWindow::Step(bool (Document::*step)()) {
  return Do(Text("$$$/Studio/Error/Step=This step cannot be shown."), [&] {
    if (!(document.*step)()) return TellOfCancel();
    ShowDocument();
    return true;
  });
}

bool StudioWindow::GoTo(size_t step) {
  if (step == document.CurrentStep()) return true;
  return Do(Text("$$$/Studio/Error/Step=This step cannot be shown."), [&] {
    if (!document.GoTo(step)) return TellOfCancel();
    ShowDocument();
    return true;
  });
}

void StudioWindow::Show(const ArtworkPtr& artwork) {
  document = Document([this](const QString& path) { return ReadAgain(path); }, artwork);
  ShowDocument();
}

void StudioWindow::ShowDocument() {
  const ArtworkPtr shown = Shown();
  pages->setCurrentWidget(shown ? static_cast<QWidget*>(canvas) : startPage);
  canvas->Show(shown);
  if (shown) canvas->setFocus();
  statusBar()->clearMessage();
  for (QAction* action : {actions.tesserae, actions.zoomIn, actions.zoomOut, actions.actualSize,
                          actions.fit, actions.zoom}) {
    action->setEnabled(shown != nullptr);
  }
  actions.tesseraeAgain->setEnabled(ConfirmedForShown() != nullptr);
  for (QAction* action : {actions.exportMosaic, actions.exportAgain})
    action->setEnabled(shown && shown->mosaic);
  actions.copy->setEnabled(shown != nullptr);
  const QString undo = document.UndoName();
  actions.undo->setEnabled(!undo.isEmpty());
  actions.undo->setText(undo.isEmpty() ? Text("$$$/Studio/Menu/Undo=&Undo")
                                       : Text("$$$/Studio/Menu/UndoWhat=&Undo %1", undo));
  const QString redo = document.RedoName();
  actions.redo->setEnabled(!redo.isEmpty());
  actions.redo->setText(redo.isEmpty() ? Text("$$$/Studio/Menu/Redo=&Redo")
                                       : Text("$$$/Studio/Menu/RedoWhat=&Redo %1", redo));

  actions.zoom->setIconText(PercentText(canvas->Zoom()));
  setWindowTitle(shown ? Text("$$$/Studio/TitleWithPicture=%1 — Tesserae Studio",
                              QFileInfo(shown->path).fileName() + "[*]")
                       : Text("$$$/Studio/Title=Tesserae Studio"));
  setWindowModified(!document.Unexported().empty());
}

bool StudioWindow::TellOfCancel() {
  Tell(Text("$$$/Studio/Status/Cancelled=Cancelled. Nothing has changed."));
  return false;
}

void StudioWindow::Tell(const QString& text) {
  statusBar()->showMessage(text, kMessageTime);
  qtui::Announce(*this, text);
}

void StudioWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  const bool isWorking = !isEnabled();
  if (isBusy) closesAfterWork = isWorking;
  if (isBusy) return;
  const size_t shown = document.CurrentStep();
  for (const size_t step : document.Unexported()) {
    const auto answer = boxes.AskBeforeClosing(QFileInfo(document.ArtworkOf(step).path).fileName());
    if (answer == MessageBoxes::Answer::kDiscard) continue;
    if (answer == MessageBoxes::Answer::kExport && GoTo(step) && AskForExport()) continue;
    GoTo(shown);  // the next time asks for those again that would be discarded now
    return;
  }
  settings::kWindowGeometry.Set(saveGeometry());
  event->accept();
}

/// Return and Escape on the artboard lead back to the dialog that is open.
void StudioWindow::keyPressEvent(QKeyEvent* event) {
  QMainWindow::keyPressEvent(event);
  const int keys[] = {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape};
  if (std::ranges::find(keys, event->key()) == std::end(keys)) return;
  for (QDialog* dialog : findChildren<QDialog*>(Qt::FindDirectChildrenOnly))
    if (dialog->isVisible()) dialog->activateWindow();
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
    if (!OpenPicture(paths.front()) || paths.size() == 1) return;
    Tell(
        Text("$$$/Studio/Status/OnlyFirst=Opened %1. Only one picture can be dropped at a time; %2 "
             "was not opened.",
             QFileInfo(paths[0]).fileName(), QFileInfo(paths[1]).fileName()));
  };
  QMetaObject::invokeMethod(this, open, Qt::QueuedConnection);
}
