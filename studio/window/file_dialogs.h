#pragma once

#include <QString>
#include <optional>

class QWidget;
class SvgDrawing;
struct ImageElement;

/// Modal dialogs over a window that ask what to open and where to export. Called on the
/// user-interface thread. A path is empty when the user cancelled.

/// Asks for a picture to open and starts in `folder`.
QString AskForPicture(QWidget& window, const QString& folder);

/// Asks which image of the drawing to open; the drawing must have one. Returns one of the drawing's
/// images, null for the whole drawing, or nothing when the user cancelled.
std::optional<const ImageElement*> AskForImage(QWidget& window, const SvgDrawing& drawing);

/// Asks where to export a mosaic; `proposed` is a path with the ending of an export kind. A name
/// without such an ending gets that of the chosen kind, in place of a picture's ending. The dialog
/// shows this change, and that a file will be replaced, before the user accepts.
QString AskForExport(QWidget& window, const QString& proposed);
