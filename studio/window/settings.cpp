#include "studio/window/settings.h"

#include <QFileInfo>
#include <QStandardPaths>

namespace settings {

namespace {

constexpr int kMostRecentPictures = 8;

const Kept<QStringList> kRecentPictures{"recentPictures"};
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
  return kRecentPictures.Get();
}

void AddRecentPicture(const QString& path) {
  const QString absolute = QFileInfo(path).absoluteFilePath();
  QStringList paths = kRecentPictures.Get();
  paths.removeAll(absolute);
  paths.prepend(absolute);
  kRecentPictures.Set(paths.mid(0, kMostRecentPictures));
}

void ClearRecentPictures() {
  File().remove(kRecentPictures.key);
}

}  // namespace settings
