#pragma once

#include <QImage>
#include <functional>
#include <optional>
#include <vector>

#include "platform/nrvui/gesture_script.h"
#include "studio/base/interruption.h"
#include "studio/base/output.h"
#include "studio/caller/dialog_choices.h"
#include "studio/caller/last_choices.h"
#include "studio/console/command_line.h"
#include "studio/drawing/drawing_export.h"
#include "studio/drawing/placed_image.h"
#include "studio/mosaic/artwork.h"

/// Whether windows can be seen.
bool HasDisplay();

/// One run of the program on the command line, from the picture to the files.
class ConsoleRun {
 public:
  /// What the studio's window looks like over an artwork; null is the empty window.
  using WindowCamera = std::function<QImage(const ArtworkPtr&)>;

  ConsoleRun(CommandLine commandLine, WindowCamera windowCamera);

  /// The program's exit status: 0 after OK, 1 when it was cancelled. Throws StudioError, or another
  /// std::exception, when something is wrong. Unless it answers 0, no file has changed, except when
  /// the disk fails between the moments in which several files take their places. Once they have
  /// taken them, a signal ends the program with status 0.
  int Run();

 private:
  int TakeScreenshots();
  void CheckExport(const QString& path) const;
  void Open();
  void OpenOutputs();
  void OpenScreenshots();
  QIODevice* OpenOutput(const QString& name);
  /// Asks a person again, with their entries, when the choices lead to no mosaic. The result is
  /// whether OK ended the dialog, with these choices.
  bool AskUntilUsable(MosaicChoices& choices);
  bool Ask(MosaicChoices& choices);
  bool Build(const MosaicChoices& choices);
  bool ExportDrawing();
  void SaveScreenshots();
  void KeepChoices();

  void Tell(const QString& text) const;
  void TellOfFiles() const;
  void Warn(const QString& text) const;

  const CommandLine line;
  const WindowCamera windowCamera;
  LastChoices lastChoices;
  std::optional<nrvui::gestures::GestureScript> gestures;  // nothing when a person answers
  std::optional<const Interruption> interruption;          // from the first open output on
  std::shared_ptr<const SvgDrawing> drawing;               // null for a picture
  std::vector<PlacedImage> placed;                         // in the drawing
  std::vector<ArtworkPtr> artworks;                        // the picture, or those of `placed`
  ArtworkPtr artwork;                 // the present one; null before a picture is placed
  std::vector<PlacedMosaic> mosaics;  // of `placed`, as far as they are built
  std::optional<MosaicChoices> last;  // of the present run
  DialogEntries entries;              // of the dialog that is open or was last
  QImage dialogScreenshot;            // of the last dialog
  OutputSet outputs;
  std::vector<QIODevice*> exportDevices;        // in the order of the command line's exports
  QIODevice* recordDevice = nullptr;            // null when not asked for
  QIODevice* stateDevice = nullptr;             // null when the choices go to the user's settings
  QIODevice* dialogScreenshotDevice = nullptr;  // null when not asked for
  QIODevice* windowScreenshotDevice = nullptr;  // null when not asked for
};
