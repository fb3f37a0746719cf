#pragma once

#include <QByteArray>
#include <QString>
#include <filesystem>

/// A file's name as the system has it, as a text. Names are bytes to the system: a byte that is no
/// UTF-8 becomes a lone surrogate, U+DC80 to U+DCFF, from which SystemPath makes the byte again.
QString FileName(const QByteArray& bytes);

/// The path that a text stands for, to the byte.
std::filesystem::path SystemPath(const QString& name);

/// A text on one line: control characters and bytes outside UTF-8 become visible escapes such as
/// \n, \t or \x1B.
QString OnOneLine(const QString& text);
