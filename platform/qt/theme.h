#pragma once

#include <QColor>
#include <QPixmap>
#include <QString>
#include <QWidget>
#include <optional>

namespace qtui {

enum class Theme { kSystem, kLight, kDark };

/// As settings and command lines call it: "dark".
const char* NameOf(Theme theme);
/// Nothing when no theme is called that.
std::optional<Theme> ThemeNamed(const QString& name);

/// Gives the application's windows, open ones too, their colours. kSystem is what the desktop
/// wants. Needs the QApplication.
void ApplyTheme(Theme theme);

bool IsDark(const QPalette& palette);
/// The window's colour with a share, of 255, of the text's.
QColor Faint(const QPalette& palette, int share);
/// The colour in which something draws attention on the widget's background.
QColor WarningColor(const QWidget& widget);
/// As high as a line of the widget's text, at its screen's resolution.
QPixmap WarningIcon(const QWidget& widget);

}  // namespace qtui
