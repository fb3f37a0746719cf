#pragma once

#include <QIcon>

/// The studio's own drawings. They are drawn in the colour of the texts around them, at any size.
enum class Drawing { kOpen, kExport, kTesserae, kUndo, kRedo, kZoomIn, kZoomOut, kFit, kPicture };

QIcon LineIcon(Drawing drawing);
