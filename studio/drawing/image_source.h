#pragma once

#include <functional>

#include "studio/picture/picture.h"

class SvgDrawing;
struct ImageElement;

/// Reads the picture of an image element: from its `data:` URL, or from a local file, linked by a
/// path relative to the document's folder or by a `file:` URL. Never accesses a network. Throws
/// StudioError, also soon after `isStopped` returns true. Any thread may call it.
Picture ReadImage(
    const SvgDrawing& drawing, const ImageElement& image,
    const std::function<bool()>& isStopped = [] { return false; });

/// The path of the file that an image links to; empty if the picture is embedded. Throws
/// StudioError if the link is missing or is not a local file.
QString LinkedFile(const SvgDrawing& drawing, const ImageElement& image);
