#pragma once

#include <QByteArray>
#include <QString>
#include <filesystem>

/// A file name of the system, a sequence of bytes, as text. Each byte that is not part of valid
/// UTF-8 becomes a lone surrogate, U+DC80 to U+DCFF, which SystemPath turns back into the byte.
QString FileName(const QByteArray& bytes);

/// The inverse of FileName.
std::filesystem::path SystemPath(const QString& name);

/// The text on one line: control characters and bytes that are not UTF-8 become visible escapes
/// such as \n, \t or \x1B.
QString OnOneLine(const QString& text);
