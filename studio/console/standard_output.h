#pragma once

#include <QString>

/// Writes a text to the standard output, for a reader who may be waiting. Throws StudioError when
/// there is nobody who takes it.
void Print(const QString& text);
