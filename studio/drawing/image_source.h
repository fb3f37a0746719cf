#pragma once

#include <functional>

#include "studio/picture/picture.h"

class SvgDrawing;
struct ImageElement;

/// Reads the picture that an image element shows: from its `data:` URL, or from a file that it
/// links to, by a path from the document's folder or a `file:` URL on this machine. Nothing is
/// fetched from a network. Throws StudioError; a drawing is given up soon after `isStopped` says
/// so.
Picture ReadImage(
    const SvgDrawing& drawing, const ImageElement& image,
    const std::function<bool()>& isStopped = [] { return false; });

/// The file that an image links to; empty for an embedded one. Throws StudioError for links that
/// are not files of this machine.
QString LinkedFile(const SvgDrawing& drawing, const ImageElement& image);
