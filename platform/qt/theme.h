#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QString>
#include <QWidget>
#include <optional>

namespace qtui {

enum class Theme { kSystem, kLight, kDark };

/// The name in settings and command lines, such as "dark".
const char* NameOf(Theme theme);
/// Nothing for an unknown name.
std::optional<Theme> ThemeNamed(const QString& name);

/// Sets the colours of all windows, including open ones, and one order of buttons for all dialogs.
/// kSystem uses the desktop's style and colours. Needs the QApplication.
void ApplyTheme(Theme theme);

bool IsDark(const QPalette& palette);
/// Mixes the window's colour with `share` / 255 of the text's.
QColor Faint(const QPalette& palette, int share);
/// The colour for text of less importance on the window's colour.
QColor FaintText(const QPalette& palette);
/// The colour for warnings on the widget's background.
QColor WarningColor(const QWidget& widget);
/// The drawing `resources/icons/NAME.svg` in the colour that the theme gives texts on buttons, also
/// after a change of the theme.
QIcon ThemedIcon(const QString& name);
/// As high as a line of the widget's text, at its screen's resolution.
QPixmap WarningIcon(const QWidget& widget);

}  // namespace qtui
