#pragma once

#include <QString>
#include <utility>
#include <vector>

#include "studio/mosaic/artwork.h"

/// What the window works on: the artwork that is shown, the way there and back, and which mosaics
/// were exported.
class Document {
 public:
  /// Begins with an artwork; null is an empty page.
  explicit Document(ArtworkPtr first = nullptr) : steps{{{}, std::move(first)}} {}

  /// Null before the first picture.
  const ArtworkPtr& Shown() const { return steps[current].artwork; }

  /// Shows another artwork, not null; what was undone before is forgotten. Beyond a gigabyte, or 30
  /// steps, so are the oldest steps, and a mosaic among them that was not exported, as memory has
  /// an end. `name` is what menus call the step.
  void Change(const QString& name, ArtworkPtr next);

  /// Names of the steps that can be taken back and again; empty when there are none.
  QString UndoName() const { return current > 0 ? steps[current].name : QString(); }
  QString RedoName() const {
    return current + 1 < steps.size() ? steps[current + 1].name : QString();
  }
  void Undo();
  void Redo();

  /// The mosaic that is shown is safe in a file.
  void NoteExport() { steps[current].isExported = true; }

  /// The mosaics that would be lost, the last one first: neither exported, nor undone, nor replaced
  /// by another one of the same picture, nor forgotten.
  std::vector<ArtworkPtr> Unexported() const;
  /// Goes to the step of an artwork that isn't forgotten.
  void GoTo(const ArtworkPtr& artwork);

 private:
  struct Step {
    QString name;
    ArtworkPtr artwork;
    bool isExported = false;
  };

  qint64 Bytes() const;

  std::vector<Step> steps;  // never empty
  size_t current = 0;
};
