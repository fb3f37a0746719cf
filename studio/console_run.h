#pragma once

#include <vector>

#include "studio/artwork.h"
#include "studio/command_line.h"
#include "studio/interruption.h"
#include "studio/last_choices.h"
#include "studio/output_set.h"

/// One run of the program on the command line, from the picture to the files.
class ConsoleRun {
 public:
  explicit ConsoleRun(CommandLine commandLine);

  /// The program's exit status: 0 after OK, 1 when it was cancelled. Throws StudioError, or another
  /// std::exception, when something is wrong. Unless it answers 0, no file has changed, except when
  /// the disk fails between the moments in which several files take their places.
  int Run();

 private:
  int Photograph();
  void PlacePicture();
  void OpenOutputs();
  void OpenPictureOutputs();
  MosaicChoices FirstChoices() const;
  bool Ask(MosaicChoices& choices);
  /// False when the building was stopped.
  bool Build(const MosaicChoices& choices);
  void SaveWindowPicture();
  void KeepChoices(const MosaicChoices& choices);

  void Tell(const QString& text) const;
  void TellOfFiles() const;
  void Warn(const QString& text) const;

  const CommandLine line;
  LastChoices lastChoices;
  const Interruption interruption;
  ArtworkPtr artwork;  // null before the picture is placed
  OutputSet outputs;
  std::vector<QIODevice*> exportDevices;     // in the order of the command line's exports
  QIODevice* recordDevice = nullptr;         // null when not asked for
  QIODevice* stateDevice = nullptr;          // null when the choices go to the user's settings
  QIODevice* dialogPictureDevice = nullptr;  // null when not asked for
  QIODevice* windowPictureDevice = nullptr;  // null when not asked for
};
