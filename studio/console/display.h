#pragma once

/// Before the QApplication: lets Qt look for a display that is there, and do without otherwise.
/// What the user's environment says about platforms counts first.
void ChoosePlatform(bool showsWindows);

/// Whether there is a person who sees windows.
bool HasDisplay();
