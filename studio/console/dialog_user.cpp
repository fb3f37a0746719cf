#include "studio/console/dialog_user.h"

#include <QGuiApplication>
#include <QWidget>
#include <utility>

#include "studio/base/studio_error.h"

bool HasDisplay() {
  return QGuiApplication::platformName() != "offscreen";
}

DialogUser::DialogUser(const CommandLine& line,
                       const std::optional<nrvui::gestures::GestureScript>& gestures,
                       std::function<void(const std::string&)> report) {
  if (!line.ShowsWindows()) {
    installed.emplace(script.emplace(*gestures, std::move(report)));
    return;
  }
  if (!gestures && !line.WantsScreenshotsOnly() && !HasDisplay()) {
    throw StudioError(
        "$$$/Studio/Line/NeedsGestures=without a display the dialog needs --gestures FILE");
  }
  installed.emplace(windows.emplace());
  if (!line.dialogScreenshot.isEmpty()) windows->TakeScreenshots();
  if (gestures) {
    windows->PlayScript(*gestures, std::move(report));
  } else if (line.WantsScreenshotsOnly()) {
    windows->WhenPainted([](QWidget& window) { window.close(); });
  }
}

QString DialogUser::Problem() const {
  const auto& error = windows ? windows->Error() : script->Error();
  return error ? QString(error->what()) : QString();
}
