#include "studio/window/settings.h"

#include <QFileInfo>
#include <QStandardPaths>

namespace settings {

namespace {

constexpr int kMostRecentPictures = 8;

/// Some may be on a disk that is away for the moment.
const Kept<QStringList> kKnownPictures{"recentPictures"};
const Kept<QString> kTheme{"theme"};

}  // namespace

QSettings File() {
  return QSettings(
      QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + "/window.ini",
      QSettings::IniFormat);
}

qtui::Theme ChosenTheme() {
  return qtui::ThemeNamed(kTheme.Get()).value_or(qtui::Theme::kSystem);
}

void ChooseTheme(qtui::Theme theme) {
  kTheme.Set(qtui::NameOf(theme));
}

QStringList RecentPictures() {
  QStringList paths = kKnownPictures.Get();
  paths.removeIf([](const QString& path) { return !QFileInfo(path).isFile(); });
  return paths;
}

void AddRecentPicture(const QString& path) {
  const QString absolute = QFileInfo(path).absoluteFilePath();
  QStringList paths = kKnownPictures.Get();
  paths.removeAll(absolute);
  paths.prepend(absolute);
  kKnownPictures.Set(paths.mid(0, kMostRecentPictures));
}

void ClearRecentPictures() {
  File().remove(kKnownPictures.key);
}

}  // namespace settings
