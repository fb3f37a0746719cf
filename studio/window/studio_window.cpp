#include "studio/window/studio_window.h"

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QStatusBar>

#include "studio/mosaic_export.h"
#include "studio/mosaic_job.h"
#include "studio/output_set.h"
#include "studio/studio_error.h"
#include "studio/text.h"
#include "studio/window/background_work.h"
#include "studio/window/file_dialogs.h"
#include "studio/window/settings.h"
#include "studio/window/size_text.h"
#include "studio/window/tile_sink.h"

namespace {

constexpr QSize kFirstSize(1080, 760);
constexpr int kMessageTime = 6000;  // ms
constexpr int kMostSteps = 30;

class Exchange final : public QUndoCommand {
 public:
  using Show = std::function<void(const ArtworkPtr&)>;

  Exchange(const QString& name, ArtworkPtr former, ArtworkPtr next, Show showArtwork)
      : QUndoCommand(name),
        before(std::move(former)),
        after(std::move(next)),
        show(std::move(showArtwork)) {}

  void undo() override { show(before); }
  void redo() override { show(after); }

 private:
  const ArtworkPtr before;
  const ArtworkPtr after;
  const Show show;
};

/// The first local file that is dragged; empty when there is none.
QString DraggedFile(const QMimeData& data) {
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile()) return url.toLocalFile();
  }
  return {};
}

}  // namespace

StudioWindow::StudioWindow(const QString& statePath)
    : lastChoices(statePath), boxes(*this), actions(*this), pages(new QStackedWidget) {
  setObjectName("studio");
  setAcceptDrops(true);
  startPage = new StartPage([this] { AskForPicture(); },
                            [this](const QString& path) { OpenPicture(path); });
  canvas = new Canvas;
  pages->addWidget(startPage);
  pages->addWidget(canvas);
  setCentralWidget(pages);
  history.setUndoLimit(kMostSteps);
  MakeStatusBar();
  MakeZoomMenu();
  MakeThemeMenu();
  Connect();
  FillRecentMenu();
  TakeUndoState();
  TakeArtwork(nullptr);
  if (!restoreGeometry(settings::WindowGeometry())) resize(kFirstSize);
  try {
    const QString name = Caller().ModuleName();
    actions.about->setText(Text("$$$/Studio/Menu/AboutModule=&About %1", name));
  } catch (const StudioError&) {
    // Whoever asks for the dialog or the about box hears why there is none.
  }
}

StudioWindow::~StudioWindow() {
  history.disconnect(this);
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
  on(actions.quit, [this] { close(); });
  on(actions.undo, [this] { history.undo(); });
  on(actions.redo, [this] { history.redo(); });
  on(actions.tesserae, [this] { CreateTesserae(); });
  on(actions.zoomIn, [this] { canvas->ZoomIn(); });
  on(actions.zoomOut, [this] { canvas->ZoomOut(); });
  on(actions.actualSize, [this] { canvas->SetZoom(1); });
  on(actions.fit, [this] { canvas->Fit(); });
  on(actions.about, [this] { ShowAbout(); });
  connect(&history, &QUndoStack::indexChanged, this, [this] { TakeUndoState(); });
  connect(actions.recent, &QMenu::aboutToShow, this, [this] { FillRecentMenu(); });
  canvas->WhenZoomed([this] { actions.zoom->setIconText(PercentText(canvas->Zoom())); });
}

void StudioWindow::MakeStatusBar() {
  summary = new QLabel;
  summary->setObjectName("summary");
  statusBar()->addPermanentWidget(summary);
  statusBar()->setSizeGripEnabled(false);
  statusBar()->setContentsMargins(6, 0, 6, 0);
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

void StudioWindow::MakeThemeMenu() {
  auto* const group = new QActionGroup(this);
  const std::pair<qtui::Theme, const char*> themes[] = {
      {qtui::Theme::kSystem, "$$$/Studio/Menu/ThemeSystem=Like the &System"},
      {qtui::Theme::kLight, "$$$/Studio/Menu/ThemeLight=&Light"},
      {qtui::Theme::kDark, "$$$/Studio/Menu/ThemeDark=&Dark"},
  };
  for (const auto& [theme, caption] : themes) {
    QAction* const action = actions.theme->addAction(Text(caption), this, [chosen = theme] {
      settings::ChooseTheme(chosen);
      qtui::ApplyTheme(chosen);
    });
    action->setCheckable(true);
    action->setChecked(theme == settings::ChosenTheme());
    group->addAction(action);
  }
}

void StudioWindow::FillRecentMenu() {
  const QStringList paths = settings::RecentPictures();
  actions.recent->clear();
  for (const QString& path : paths) {
    QAction* const action = actions.recent->addAction(QFileInfo(path).fileName().replace('&', "&&"),
                                                      this, [this, path] { OpenPicture(path); });
    action->setToolTip(path);
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
  Do(Text("$$$/Studio/Error/About=There is nothing to tell about the module."), [this] {
    Caller().ShowAbout();
    return true;
  });
}

bool StudioWindow::Do(const QString& failure, const std::function<bool()>& work) {
  if (isBusy) return false;
  const QScopedValueRollback busy(isBusy, true);
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
    std::optional<Picture> picture;
    const QString label =
        Text("$$$/Studio/Progress/Opening=Opening %1…", QFileInfo(path).fileName());
    if (!DoInBackground(*this, label, [&](const Progress& goOn) {
          picture = Picture::Read(path);
          return goOn(1);
        })) {
      return false;
    }
    const bool isSizeKnown =
        !actions.placeUnknown->isChecked() && IsUsableSize(picture->SizeInPoints());
    Change(Text("$$$/Studio/Undo/Place=Place Picture"),
           std::make_shared<const Artwork>(Artwork{QFileInfo(path).absoluteFilePath(),
                                                   std::move(*picture), isSizeKnown, nullptr}));
    settings::AddRecentPicture(path);
    FillRecentMenu();
    return true;
  });
}

bool StudioWindow::CreateTesserae() {
  if (!shown) return false;
  return Do(Text("$$$/Studio/Error/Create=The mosaic cannot be made."), [this] {
    MosaicChoices choices = ChoicesFor(shown->picture.SizeInPoints(), LoadChoices());
    if (!shown->isSizeKnown) choices.params.sizeUnavailable = 1;
    if (!Ask(choices)) return false;
    auto mosaic = Build(choices);
    if (!mosaic) {
      Tell(Text("$$$/Studio/Status/Cancelled=Cancelled. Nothing has changed."));
      return false;
    }
    Artwork next = *shown;
    next.mosaic = std::move(mosaic);
    Change(Text("$$$/Studio/Undo/Create=Create Tesserae"),
           std::make_shared<const Artwork>(std::move(next)));
    KeepChoices(choices);
    return true;
  });
}

bool StudioWindow::Ask(MosaicChoices& choices) {
  const nrvui::ui::InstalledPresenter installed(presenter);
  return Caller().Ask(choices.params, choices.state) == MosaicCaller::Answer::kOk;
}

std::shared_ptr<const Mosaic> StudioWindow::Build(const MosaicChoices& choices) {
  MosaicJob job(shown->picture, choices.params, choices.state);
  Mosaic mosaic{choices, job.Geometry(), {}, {}};
  job.Add(std::make_unique<TileSink>(job.Geometry(), mosaic.tiles));
  const QString label = Text("$$$/Studio/Progress/Building=Building the mosaic…");
  const bool isComplete = DoInBackground(*this, label, [&](const Progress& goOn) {
    mosaic.below = job.Below();
    return job.Run([&](int rows) { return goOn(double(rows) / job.Geometry().tilesDown); });
  });
  return isComplete ? std::make_shared<const Mosaic>(std::move(mosaic)) : nullptr;
}

std::optional<MosaicChoices> StudioWindow::LoadChoices() {
  if (choicesInMind) return choicesInMind;
  try {
    return lastChoices.Load();
  } catch (const StudioError&) {
    Tell(
        Text("$$$/Studio/Status/ChoicesUnreadable=Your last choices cannot be read. The dialog "
             "starts afresh."));
    return std::nullopt;
  }
}

/// They are a convenience, which must not cost a finished mosaic.
void StudioWindow::KeepChoices(const MosaicChoices& choices) {
  choicesInMind = choices;
  try {
    lastChoices.Save(choices);
  } catch (const StudioError&) {
    Tell(Text("$$$/Studio/Status/ChoicesNotKept=Your choices cannot be kept for the next time."));
  }
}

bool StudioWindow::AskForExport() {
  if (!shown || !shown->mosaic) return false;
  const QFileInfo source(shown->path);
  const QString former = settings::ExportFolder();
  const QString folder = QFileInfo(former).isDir() ? former : source.absolutePath();
  const QString name = Text("$$$/Studio/Export/FileName=%1 mosaic", source.completeBaseName());

  const QString path = ::AskForExport(*this, folder, name);
  return !path.isEmpty() && Export(path);
}

bool StudioWindow::Export(const QString& path) {
  if (!shown || !shown->mosaic) return false;
  return Do(Text("$$$/Studio/Error/Export=The mosaic cannot be exported."), [&] {
    CheckExportEnding(path);
    const MosaicChoices& choices = shown->mosaic->choices;
    MosaicJob job(shown->picture, choices.params, choices.state);
    OutputSet outputs;
    outputs.Protect(shown->path);
    QIODevice& device = outputs.Add(path);
    const QString label =
        Text("$$$/Studio/Progress/Exporting=Exporting %1…", QFileInfo(path).fileName());
    if (!DoInBackground(*this, label, [&](const Progress& goOn) {
          job.AddExport(path, device);
          return job.Run([&](int rows) { return goOn(double(rows) / job.Geometry().tilesDown); });
        })) {
      Tell(Text("$$$/Studio/Status/Cancelled=Cancelled. Nothing has changed."));
      return false;
    }
    outputs.Commit();
    exported = shown;
    setWindowModified(false);
    settings::SetExportFolder(QFileInfo(path).absolutePath());
    Tell(Text("$$$/Studio/Status/Exported=Exported %1", QDir::toNativeSeparators(path)));
    return true;
  });
}

void StudioWindow::Change(const QString& name, ArtworkPtr next) {
  const ArtworkPtr former = shown;
  history.push(new Exchange(name, former, std::move(next),
                            [this](const ArtworkPtr& artwork) { TakeArtwork(artwork); }));
}

void StudioWindow::Show(const ArtworkPtr& artwork) {
  history.clear();
  TakeArtwork(artwork);
}

void StudioWindow::TakeUndoState() {
  actions.undo->setEnabled(history.canUndo());
  actions.redo->setEnabled(history.canRedo());
  actions.undo->setText(history.canUndo()
                            ? Text("$$$/Studio/Menu/UndoWhat=&Undo %1", history.undoText())
                            : Text("$$$/Studio/Menu/Undo=&Undo"));
  actions.redo->setText(history.canRedo()
                            ? Text("$$$/Studio/Menu/RedoWhat=&Redo %1", history.redoText())
                            : Text("$$$/Studio/Menu/Redo=&Redo"));
}

void StudioWindow::TakeArtwork(const ArtworkPtr& artwork) {
  shown = artwork;
  pages->setCurrentWidget(shown ? static_cast<QWidget*>(canvas) : startPage);
  canvas->Show(shown);
  if (shown) canvas->setFocus();
  statusBar()->clearMessage();
  for (QAction* action : {actions.tesserae, actions.zoomIn, actions.zoomOut, actions.actualSize,
                          actions.fit, actions.zoom}) {
    action->setEnabled(shown != nullptr);
  }
  actions.exportMosaic->setEnabled(shown && shown->mosaic);

  summary->setText(shown ? SummaryText(*shown) : QString());
  actions.zoom->setIconText(PercentText(canvas->Zoom()));

  const QString program = Text("$$$/Studio/Title=Tesserae Studio");
  setWindowTitle(shown ? Text("$$$/Studio/TitleWithPicture=%1 — Tesserae Studio",
                              QFileInfo(shown->path).fileName() + "[*]")
                       : program);
  setWindowModified(shown && shown->mosaic && shown != exported);
}

void StudioWindow::Tell(const QString& text) {
  statusBar()->showMessage(text, kMessageTime);
}

void StudioWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (isBusy) return;
  if (isWindowModified()) {
    const auto answer = boxes.AskBeforeClosing();
    if (answer == MessageBoxes::Answer::kStay) return;
    if (answer == MessageBoxes::Answer::kExport && !AskForExport()) return;
  }
  settings::SetWindowGeometry(saveGeometry());
  event->accept();
}

void StudioWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (isBusy || DraggedFile(*event->mimeData()).isEmpty()) return;
  event->acceptProposedAction();
  startPage->SetInviting(true);
}

void StudioWindow::dragLeaveEvent(QDragLeaveEvent*) {
  startPage->SetInviting(false);
}

void StudioWindow::dropEvent(QDropEvent* event) {
  startPage->SetInviting(false);
  const QString path = DraggedFile(*event->mimeData());
  if (path.isEmpty()) return;
  event->acceptProposedAction();
  // The other application waits until this returns.
  QMetaObject::invokeMethod(
      this, [this, path] { OpenPicture(path); }, Qt::QueuedConnection);
}
