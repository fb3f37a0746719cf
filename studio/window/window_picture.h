#pragma once

#include <QByteArray>

#include "studio/mosaic/artwork.h"

/// What the studio's window looks like over this artwork, as PNG; null is the empty window.
QByteArray WindowPicture(const ArtworkPtr& artwork);
