#pragma once

#include <QString>

#include "studio/mosaic/artwork.h"

/// The size of what lies on the artboard, as in "600 × 400 pt", or that it is not known.
QString SizeInPointsText(const Artwork& artwork);
/// Its tiles, if it has any, and its size in points and millimetres.
QString SummaryText(const Artwork& artwork);
/// As in "66.7 %".
QString PercentText(double share);

/// What buttons and menus call a file, by its name, and their tool tips, by its whole path. Neither
/// "&" nor "<" in these means anything there.
QString FileCaption(const QString& path);
QString FileToolTip(const QString& path);
