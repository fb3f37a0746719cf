#pragma once

#include <QFileInfo>
#include <QString>

/// What buttons and menus call a file, by its name, and their tool tips, by its whole path. Neither
/// "&" nor "<" in these may mean anything there.

inline QString FileCaption(const QString& path) {
  return QFileInfo(path).fileName().replace('&', "&&");
}

inline QString FileToolTip(const QString& path) {
  return "<p style='white-space: pre'>" + path.toHtmlEscaped() + "</p>";
}
