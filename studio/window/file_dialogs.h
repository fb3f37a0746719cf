#pragma once

#include <QString>

class QWidget;

/// Each lets the user choose a file in a dialog over the window and returns its path, empty when
/// the dialog was cancelled.

/// A picture to open, `folder` first.
QString AskForPicture(QWidget& window, const QString& folder);

/// Where to export a mosaic; `proposed` is a path with the ending of one of the kinds. A name
/// without such an ending gets that of the chosen kind, in place of a picture's ending. The dialog
/// shows this change, and that a file will be replaced, before the user accepts.
QString AskForExport(QWidget& window, const QString& proposed);
