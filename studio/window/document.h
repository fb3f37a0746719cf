#pragma once

#include <QDateTime>
#include <QString>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "studio/mosaic/artwork.h"

/// What the window works on: the artwork that is shown, the steps before and after it, and which
/// mosaics were exported. An exception of any operation leaves the document as it was.
class Document {
 public:
  /// Reads a picture from its file again. Returns nothing when the user cancelled; throws
  /// StudioError when it fails.
  using ReadAgain = std::function<std::optional<Picture>(const QString& path)>;

  /// Begins with an artwork; null is an empty page.
  explicit Document(ReadAgain read, ArtworkPtr first = nullptr);

  /// Null before the first picture.
  const ArtworkPtr& Shown() const { return steps[current].artwork; }

  /// Shows another artwork, not null, and forgets what was undone before. Beyond 30 steps, or a
  /// gigabyte of tiles and of pictures without files, the oldest steps are forgotten, except those
  /// that Unexported returns and the last two. Beyond a gigabyte of pictures from files, the oldest
  /// are released; they are read again when their step is shown. `name` is what menus call the
  /// step.
  void Change(const QString& name, ArtworkPtr next);

  /// Names of the steps that Undo and Redo take; empty when there are none.
  QString UndoName() const { return current > 0 ? steps[current].name : QString(); }
  QString RedoName() const {
    return current + 1 < steps.size() ? steps[current + 1].name : QString();
  }
  /// False when the user cancelled the reading of the step's picture. Both throw StudioError when
  /// it cannot be read or its file has changed.
  bool Undo() { return current == 0 || GoTo(current - 1); }
  bool Redo() { return current + 1 == steps.size() || GoTo(current + 1); }

  /// The mosaic that is shown is safe in a file.
  void NoteExport() { steps[current].isExported = true; }

  /// The steps whose mosaics would be lost at the end, the last one first: neither exported, nor
  /// undone, nor replaced by another one of the same picture in the next step.
  std::vector<size_t> Unexported() const { return UnexportedIn(steps, current); }
  const Artwork& ArtworkOf(size_t step) const { return *steps[step].artwork; }
  size_t CurrentStep() const { return current; }
  /// Shows a step, as Undo does.
  bool GoTo(size_t step);

 private:
  struct Step {
    Step(const QString& stepName, ArtworkPtr shown);

    bool CanReadAgain() const;

    QString name;
    ArtworkPtr artwork;  // null for an empty page
    qint64 picture = 0;  // the same number for steps of the same picture
    QDateTime modified;  // when the picture's file was; invalid without a file
    qint64 fileSize = 0;
    bool isExported = false;
    bool isReleased = false;  // the artwork has a placeholder for the picture
  };
  using Steps = std::vector<Step>;

  static std::vector<size_t> UnexportedIn(const Steps& steps, size_t current);
  static void ForgetOldest(Steps& steps);
  static void ReleasePictures(Steps& steps, size_t shown);
  bool Restore(Steps& steps, size_t step) const;

  ReadAgain readAgain;
  Steps steps;  // never empty
  size_t current = 0;
};
