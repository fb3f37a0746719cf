#pragma once

#include <QSettings>
#include <QStringList>

#include "platform/qt/theme.h"

/// What the window remembers from one time to the next, in the user's settings.
namespace settings {

QSettings File();

template <typename Value>
struct Kept {
  const char* key;
  Value first = {};  // before the first time

  Value Get() const { return File().value(key, first).template value<Value>(); }
  void Set(const Value& value) const { File().setValue(key, value); }
};

/// Whether the canvas shows the mosaic that the dialog's choices would give.
inline const Kept<bool> kPreviewsWhileChoosing{"previewWhileChoosing", true};
/// Where the person exported to last.
inline const Kept<QString> kExportFolder{"exportFolder"};
/// The kind of the last export by its ending.
inline const Kept<QString> kExportEnding{"exportEnding", ".svg"};
/// Where the user moved the dialog "Create Tesserae": a QPoint, invalid before that.
inline const Kept<QVariant> kDialogPosition{"dialogPosition"};
inline const Kept<QByteArray> kWindowGeometry{"geometry"};

qtui::Theme ChosenTheme();
void ChooseTheme(qtui::Theme theme);

/// Paths of the pictures that were opened last, the latest first. Not every one need exist now:
/// asking for a file on a network disk that cannot be reached blocks for minutes.
QStringList RecentPictures();
void AddRecentPicture(const QString& path);
void ClearRecentPictures();

}  // namespace settings
