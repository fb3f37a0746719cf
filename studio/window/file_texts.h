#pragma once

#include <QFileInfo>
#include <QString>

/// Files by name on buttons and in menus, where neither "&" nor "<" in the name may mean anything.

inline QString FileCaption(const QString& path) {
  return QFileInfo(path).fileName().replace('&', "&&");
}

inline QString FileToolTip(const QString& path) {
  return "<p style='white-space: pre'>" + path.toHtmlEscaped() + "</p>";
}
