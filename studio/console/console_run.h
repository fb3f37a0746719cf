#pragma once

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

/// Whether the program runs on a display that shows its windows.
bool HasDisplay();

/// One run of the program on the command line, from the picture to the files. Made and run by main
/// or the run for Inkscape, on the user-interface thread.
class ConsoleRun {
 public:
  /// What the studio's window looks like over an artwork; null is the empty window.
  using WindowCamera = std::function<QImage(const ArtworkPtr&)>;

  ConsoleRun(CommandLine commandLine, WindowCamera windowCamera);

  /// Returns the program's exit status: 0 after OK, 1 when the run was cancelled. Throws
  /// StudioError, or another std::exception, when it failed. Unless it returns 0, all files are
  /// unchanged, except when the disk fails while several files are moved to their places. After
  /// that a signal ends the program with status 0.
  int Run();

 private:
  int TakeScreenshots();
  void CheckExport(const QString& path) const;
  void LoadChoices();
  void ReadGestures();
  void Open();
  void OpenOutputs();
  void OpenScreenshots();
  QIODevice* OpenOutput(const QString& name);
  /// Asks a user again, with their entries, when the choices lead to no mosaic. Returns whether OK
  /// ended the dialog, with these choices.
  bool AskUntilUsable(MosaicChoices& choices);
  bool Ask(MosaicChoices& choices);
  bool AskUnseen(MosaicChoices& choices);
  bool AskInWindows(MosaicChoices& choices);
  template <typename Presenter>
  bool CallDialog(MosaicChoices& choices, const Presenter& presenter);
  /// Returns whether the mosaic is complete, which it is unless the run was interrupted.
  bool Build(const MosaicChoices& choices);
  bool RunJob(const MosaicChoices& choices);
  bool ExportDrawing();
  void SaveScreenshots();
  void KeepChoices();

  void Tell(const QString& text) const;
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
  DialogEntries preset;                                    // the first entries; empty for none
  std::optional<nrvui::gestures::GestureScript> gestures;  // nothing when the user answers
  std::optional<const Interruption> interruption;          // from the first open output on
  std::shared_ptr<const SvgDrawing> drawing;               // null for a picture
  std::vector<PlacedImage> placed;                         // in the drawing
  std::vector<ArtworkPtr> artworks;                        // the picture, or those of `placed`
  ArtworkPtr artwork;                 // the present one; null before a picture is placed
  std::vector<PlacedMosaic> mosaics;  // of `placed`, as far as they are built
  DialogEntries entries;              // of the dialog that is open or was last
  std::vector<std::pair<MosaicChoices, DialogEntries>> made;  // one for each mosaic of this run
  QImage dialogScreenshot;                                    // of the last dialog
  OutputSet outputs;
  std::vector<QIODevice*> exportDevices;        // in the order of the command line's exports
  QIODevice* recordDevice = nullptr;            // null when not asked for
  QIODevice* stateDevice = nullptr;             // null when the choices go to the user's settings
  QIODevice* dialogScreenshotDevice = nullptr;  // null when not asked for
  QIODevice* windowScreenshotDevice = nullptr;  // null when not asked for
};
