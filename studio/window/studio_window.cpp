#include "studio/window/studio_window.h"

#include <QCloseEvent>
#include <QDialog>
#include <QFileInfo>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>
#include <algorithm>

#include "platform/qt/announcement.h"
#include "studio/base/studio_error.h"
#include "studio/window/captions.h"
#include "studio/window/settings.h"
#include "studio/window/work_dialog.h"

namespace {

constexpr QSize kFirstSize(1080, 760);
constexpr QSize kFrameAllowance(16, 48);  // what a window manager puts around a window
constexpr int kMessageTime = 6000;        // ms

}  // namespace

StudioWindow::StudioWindow(const QString& statePath, qtui::QtPresenter& presenter)
    : choicesFile(statePath),
      boxes(*this),
      presenter(presenter),
      actions(*this, [this](bool isComparing) { canvas->SetComparing(isComparing); }),
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
  if (isBusy) {
    closesAfterWork = WorkDialog::IsOver(*this);
    return;
  }
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
