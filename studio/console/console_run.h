#pragma once

#include <QBuffer>
#include <QImage>
#include <functional>
#include <optional>
#include <vector>

#include "platform/nrvui/gesture_script.h"
#include "studio/base/interruption.h"
#include "studio/base/output.h"
#include "studio/caller/kept_choices.h"
#include "studio/console/command_line.h"
#include "studio/drawing/drawing_export.h"
#include "studio/drawing/placed_image.h"
#include "studio/mosaic/artwork.h"

/// Whether windows appear on a display.
bool HasDisplay();

/// One run of the program without the main window, from the picture to the files; or, as an
/// extension of Inkscape, from the document and its selection to the new document on the standard
/// output. main creates and runs it on the user-interface thread.
class ConsoleRun {
 public:
  /// Takes a screenshot of the main window with this artwork; null is the empty window.
  using WindowCamera = std::function<QImage(const ArtworkPtr&)>;

  ConsoleRun(CommandLine commandLine, WindowCamera windowCamera);

  /// Returns the program's exit status: 0 after OK, 1 if the dialog was cancelled or a signal
  /// stopped the run; for Inkscape 0 after a cancelled dialog. Throws StudioError, or another
  /// std::exception, on failure. Unless it returns 0, all files are unchanged, except if the disk
  /// fails while several files are moved to their places. Once the outputs are complete, a signal
  /// ends the program with status 0.
  int Run();

 private:
  int TakeScreenshots();
  void CheckExport(const QString& path) const;
  void LoadChoices();
  void ReadGestures();
  void Open();
  std::vector<const ImageElement*> ChosenImages() const;
  void OpenOutputs();
  void OpenScreenshots();
  QIODevice* OpenOutput(const QString& name);
  /// Opens the dialog, for a user again until the choices lead to a mosaic. Returns whether OK
  /// ended it.
  bool AskUntilUsable(MosaicChoices& choices);
  bool Ask(MosaicChoices& choices);
  template <typename Presenter>
  bool CallDialog(MosaicChoices& choices, Presenter& presenter);
  /// Returns false if the run was interrupted.
  bool Build(const MosaicChoices& choices);
  bool RunJob(const MosaicChoices& choices);
  bool ExportDrawing();
  void SaveScreenshots();
  void KeepChoices();

  void Tell(const QString& text) const;
  void TellIfLarge(const QString& path, double bytes) const;
  void TellOfFiles() const;
  /// Passes UTF-8 text to Warn.
  std::function<void(const std::string&)> Reporter() const;
  void Warn(const QString& text) const;

  const CommandLine line;
  const WindowCamera windowCamera;
  const CommandLine::Windows windows;
  const ChoicesFile choicesFile;
  KeptChoices kept;  // from the file, with the mosaics of this run
  bool canKeepChoices = true;
  DialogEntries preset;                                    // the first entries; may be empty
  std::optional<nrvui::gestures::GestureScript> gestures;  // no value if the user answers
  std::optional<const Interruption> interruption;          // since the first output was opened
  std::shared_ptr<const SvgDrawing> drawing;               // null for a picture
  std::vector<PlacedImage> placed;                         // in the drawing
  std::vector<ArtworkPtr> artworks;                        // the picture, or those of `placed`
  ArtworkPtr artwork;                 // the current one; null before a picture is placed
  std::vector<PlacedMosaic> mosaics;  // those of `placed` that are built
  DialogEntries entries;              // of the open or the last dialog
  std::vector<std::pair<MosaicChoices, DialogEntries>> made;  // one for each mosaic of this run
  QImage dialogScreenshot;                                    // of the last dialog
  OutputSet outputs;
  QBuffer inkscapeDocument;               // the new document for Inkscape
  std::vector<QIODevice*> exportDevices;  // in the order of the command line's exports
  // These are null if the user did not ask for them.
  QIODevice* recordDevice = nullptr;
  QIODevice* stateDevice = nullptr;
  QIODevice* dialogScreenshotDevice = nullptr;
  QIODevice* windowScreenshotDevice = nullptr;
};
