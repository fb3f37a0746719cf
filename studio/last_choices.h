#pragma once

#include <QSizeF>
#include <QString>
#include <optional>

#include "studio/record_json.h"

/// The file that keeps the choices from one run to the next.
class LastChoices {
 public:
  /// The place that the user named, or the one in the user's settings when there is none.
  explicit LastChoices(const QString& namedPath);

  const QString& Path() const { return path; }

  /// A place that the user named is binding: it must be readable now and writable later.
  bool IsNamed() const { return isNamed; }

  /// Nothing when there is no file yet. Throws StudioError when it cannot be read.
  std::optional<MosaicChoices> Load() const;

  /// For the place in the user's settings. Throws StudioError.
  void Save(const MosaicChoices& choices) const;

 private:
  bool isNamed;
  QString path;
};

/// Whether the dialog can reckon with a size in points; it is told that others are not known.
bool IsUsableSize(QSizeF size);

/// The record for the dialog over a picture of this size in points: last counts and flags, or else
/// square tiles, a hundred across.
MosaicChoices ChoicesFor(QSizeF pictureSize, const std::optional<MosaicChoices>& last);
