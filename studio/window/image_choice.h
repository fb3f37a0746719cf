#pragma once

#include <optional>

class SvgDrawing;
class QWidget;
struct ImageElement;

/// Asks the user which image of the drawing to open, in a modal dialog over `window`. Returns one
/// of the drawing's images, a null pointer for the whole drawing, or no value after Cancel. Called
/// on the GUI thread; the drawing must have an image.
std::optional<const ImageElement*> AskForImage(QWidget& window, const SvgDrawing& drawing);
