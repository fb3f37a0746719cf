#pragma once

#include <QString>

struct ExportKind;
class QWidget;

/// Each lets the person choose a file in a dialog over the window and answers its path, empty when
/// the dialog was cancelled.

/// A picture to open, `folder` first.
QString AskForPicture(QWidget& window, const QString& folder);

/// Where to export a mosaic; `name`, without an ending, and a kind are proposed. The answer ends in
/// what the person wrote or in that of the kind they chose, in place of a picture's ending, and
/// they agreed if such a file is there already.
QString AskForExport(QWidget& window, const QString& folder, const QString& name,
                     const ExportKind& proposed);
