#include "studio/console/display.h"

#include <QGuiApplication>

namespace {

constexpr const char* kPlatform = "QT_QPA_PLATFORM";
constexpr const char* kWithoutDisplay = "offscreen";

}  // namespace

void ChoosePlatform(bool showsWindows) {
  if (qEnvironmentVariableIsSet(kPlatform)) return;
  QByteArray platforms;
  if (showsWindows && !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) platforms += "wayland;";
  if (showsWindows && !qEnvironmentVariableIsEmpty("DISPLAY")) platforms += "xcb;";
  qputenv(kPlatform, platforms + kWithoutDisplay);
}

bool HasDisplay() {
  return QGuiApplication::platformName() != kWithoutDisplay;
}
