#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "studio/artwork.h"

/// What the window works on: the artwork that is shown, the way there and back, and which mosaics
/// were exported.
class Document {
 public:
  /// Beyond this many bytes, the oldest steps are forgotten.
  static constexpr qint64 kMostBytes = qint64(1) << 30;

  /// Begins with an artwork; null is an empty page.
  explicit Document(ArtworkPtr first = nullptr, qint64 mostBytes = kMostBytes);

  /// Null before the first picture.
  const ArtworkPtr& Shown() const { return steps[current].artwork; }

  /// Shows another artwork, not null; what was undone before is forgotten. `name` is what menus
  /// call the step.
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

  /// The last mosaic that would be lost: neither exported, nor undone, nor replaced by another one
  /// of the same picture. Null when there is none.
  ArtworkPtr Unexported() const;
  /// Goes back to it.
  void ShowUnexported();

 private:
  struct Step {
    QString name;
    ArtworkPtr artwork;
    bool isExported = false;
  };

  std::optional<size_t> FindUnexported() const;
  qint64 Bytes() const;

  qint64 mostBytes;
  std::vector<Step> steps;  // never empty
  size_t current = 0;
};
