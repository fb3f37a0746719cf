#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QStackedWidget>
#include <map>
#include <memory>
#include <optional>

#include "platform/qt/qt_presenter.h"
#include "studio/caller/dialog_choices.h"
#include "studio/caller/kept_choices.h"
#include "studio/caller/mosaic_caller.h"
#include "studio/drawing/placed_image.h"
#include "studio/mosaic/artwork.h"
#include "studio/window/canvas.h"
#include "studio/window/document.h"
#include "studio/window/live_preview.h"
#include "studio/window/message_boxes.h"
#include "studio/window/presets.h"
#include "studio/window/start_page.h"
#include "studio/window/window_actions.h"

/// The application's main window: the start page, or an artboard with the artwork. Creates the
/// caller of the module and owns it. Used on the user-interface thread.
class StudioWindow final : public QMainWindow {
 public:
  /// Choices are kept in the file `statePath`; if empty, in the user's configuration folder.
  /// The dialog shows through the presenter, which must outlive the window.
  StudioWindow(const QString& statePath, qtui::QtPresenter& presenter);

  /// Shows an error in a box. Returns whether the picture was opened.
  bool OpenPicture(const QString& path);
  /// Opens an image of an SVG drawing by its ID, in the same way.
  bool OpenImage(const QString& path, const QString& id);

  /// Whether pictures are placed as if their files did not say how large they are.
  void SetSizeUnknown(bool isUnknown) { isSizeUnknown = isUnknown; }

  /// Shows an artwork and forgets the steps of undo.
  void Show(const ArtworkPtr& artwork);
  ArtworkPtr Shown() const { return document.Shown(); }

  /// Opens the dialog with these entries, and again after a building that was stopped or failed,
  /// until a mosaic was built or the user cancelled.
  void Create(const DialogEntries& entries);

  /// The last mosaic's entries of the shown picture, for other pictures; nothing when it has none.
  std::optional<DialogEntries> EntriesOfMosaic() const;

  /// Does what the studio can do only one at a time, and shows `failure` with the reason when
  /// `work` throws. Returns the result of `work`; false when it throws or something else is being
  /// done.
  bool Do(const QString& failure, const std::function<bool()>& work);

  /// Unloads the module. Throws StudioError when it leaked something.
  void CloseModule();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  struct LastExport {
    QString picture;  // whose mosaic it was
    QString path;
    double pixelsPerPoint;  // of a PNG, 0 for what its tiles want
  };

  struct Confirmed {
    MosaicChoices choices;
    DialogEntries entries;
  };

  struct Built {
    MosaicChoices choices;
    Mosaic mosaic;
    double seconds;
  };

  void Connect();
  void MakeZoomMenu();
  void FillRecentMenu();

  MosaicCaller& Caller();
  void ShowAbout();
  bool AskForPicture();
  bool AskForExport();
  void ExportAgain();
  /// Both return false when the user cancelled and throw when it failed.
  bool ExportTo(const QString& path);
  bool Write(LastExport how);
  void Copy();
  void Paste();
  std::optional<Picture> ReadAgain(const QString& path);
  bool PlaceImage(const std::shared_ptr<const SvgDrawing>& drawing, const ImageElement& image);
  void PlacePicture(const QString& path, Picture picture);
  const Confirmed* ConfirmedForShown() const;
  /// Those of this window's last mosaic, or else of the file.
  std::optional<MosaicChoices> LastChoices();
  void KeepChoices(const Confirmed& made);
  /// Shows the dialog until a mosaic is built or the user cancels, again after building was stopped
  /// or failed. Returns nothing when the user cancelled.
  std::optional<Built> AskUntilBuilt(const MosaicChoices& asked, DialogEntries entries);
  /// Shows the dialog beside the artwork, or where the user moved it; `reopensAt` counts before
  /// both. Returns whether OK closed it.
  bool Ask(MosaicChoices& choices, const std::optional<QPoint>& reopensAt);

  /// Shows another step of the document. Both return false when that failed or was cancelled.
  bool Step(bool (Document::*step)());
  bool GoTo(size_t step);
  void ShowDocument();
  /// Whether the window shows that the dragged files can be dropped.
  void SetDropHighlight(bool isHighlighted);
  void Tell(const QString& text);
  /// Returns false, the result of cancelled work.
  bool TellOfCancel();

  const ChoicesFile choicesFile;
  std::optional<MosaicChoices> lastChoices;  // of this window
  MessageBoxes boxes;
  qtui::QtPresenter& presenter;
  std::unique_ptr<MosaicCaller> caller;  // null until it could be made
  Document document{[this](const QString& path) { return ReadAgain(path); }};
  WindowActions actions;
  QStackedWidget* const pages;
  StartPage* startPage;
  Canvas* canvas;
  std::optional<PresetMenu> presetMenu;
  QLabel* const summary;
  /// What OK confirmed last for a picture, by its path and whether its size was known.
  std::map<std::pair<QString, bool>, Confirmed> confirmed;
  std::map<QString, PlacedImage> placedImages;  // of drawings, by the paths of their artworks
  std::optional<LastExport> lastExport;
  int pasted = 0;  // how many pictures were; each has a name of its own
  bool isSizeUnknown = false;
  bool isBusy = false;
  bool closesAfterWork = false;  // closed during background work, which is stopping
};
