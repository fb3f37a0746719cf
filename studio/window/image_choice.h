#pragma once

#include <optional>

class SvgDrawing;
class QWidget;
struct ImageElement;

/// What to open of a drawing that has images: one of them, or the whole drawing for null. Nothing
/// when the user cancelled.
std::optional<const ImageElement*> AskForImage(QWidget& window, const SvgDrawing& drawing);
