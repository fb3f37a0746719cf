#pragma once

#include <QMenu>

/// Fills the menu with the themes, each of which is kept when it is chosen.
void FillThemeMenu(QMenu& menu);
