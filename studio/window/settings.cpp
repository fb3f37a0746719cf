#include "studio/window/settings.h"

#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

namespace settings {

namespace {

constexpr int kMostRecentPictures = 8;
constexpr const char* kRecentPictures = "recentPictures";
constexpr const char* kTheme = "theme";
constexpr const char* kExportFolder = "exportFolder";
constexpr const char* kExportEnding = "exportEnding";
constexpr const char* kPreview = "previewWhileChoosing";
constexpr const char* kGeometry = "geometry";

QSettings File() {
  return QSettings(
      QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + "/window.ini",
      QSettings::IniFormat);
}

/// Some may be on a disk that is away for the moment.
QStringList KnownPictures() {
  return File().value(kRecentPictures).toStringList();
}

}  // namespace

QStringList RecentPictures() {
  QStringList paths = KnownPictures();
  paths.removeIf([](const QString& path) { return !QFileInfo(path).isFile(); });
  return paths;
}

void AddRecentPicture(const QString& path) {
  const QString absolute = QFileInfo(path).absoluteFilePath();
  QStringList paths = KnownPictures();
  paths.removeAll(absolute);
  paths.prepend(absolute);
  File().setValue(kRecentPictures, paths.mid(0, kMostRecentPictures));
}

void ClearRecentPictures() {
  File().remove(kRecentPictures);
}

qtui::Theme ChosenTheme() {
  return qtui::ThemeNamed(File().value(kTheme).toString()).value_or(qtui::Theme::kSystem);
}

void ChooseTheme(qtui::Theme theme) {
  File().setValue(kTheme, qtui::NameOf(theme));
}

bool PreviewsWhileChoosing() {
  return File().value(kPreview, true).toBool();
}

void SetPreviewsWhileChoosing(bool previews) {
  File().setValue(kPreview, previews);
}

QString ExportFolder() {
  return File().value(kExportFolder).toString();
}

void SetExportFolder(const QString& path) {
  File().setValue(kExportFolder, path);
}

QString ExportEnding() {
  return File().value(kExportEnding, ".svg").toString();
}

void SetExportEnding(const QString& ending) {
  File().setValue(kExportEnding, ending);
}

QByteArray WindowGeometry() {
  return File().value(kGeometry).toByteArray();
}

void SetWindowGeometry(const QByteArray& geometry) {
  File().setValue(kGeometry, geometry);
}

}  // namespace settings
