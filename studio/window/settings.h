#pragma once

#include <QStringList>

#include "platform/qt/theme.h"

/// What the window remembers from one time to the next, in the user's settings.
namespace settings {

/// Paths of pictures that were opened, the last one first; those that are not there now are left
/// out.
QStringList RecentPictures();
void AddRecentPicture(const QString& path);
void ClearRecentPictures();

qtui::Theme ChosenTheme();
void ChooseTheme(qtui::Theme theme);

/// Whether the canvas shows the mosaic that the dialog's choices would give.
bool PreviewsWhileChoosing();
void SetPreviewsWhileChoosing(bool previews);

/// Where the person exported to last; empty before the first time.
QString ExportFolder();
void SetExportFolder(const QString& path);

/// The kind of the last export by its ending, ".svg" before the first time.
QString ExportEnding();
void SetExportEnding(const QString& ending);

QByteArray WindowGeometry();
void SetWindowGeometry(const QByteArray& geometry);

}  // namespace settings
