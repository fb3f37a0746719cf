#include "studio/window/image_levels.h"

#include <algorithm>
#include <cmath>

const QImage& ImageLevels::For(double pixelWidth, double pixelHeight) {
  const std::pair halves(HalvesFor(pixelWidth, original.width()),
                         HalvesFor(pixelHeight, original.height()));
  if (halves == std::pair(0, 0)) return original;
  QImage& level = reduced[halves];
  if (level.isNull()) {
    const QSize size(std::max(1, original.width() >> halves.first),
                     std::max(1, original.height() >> halves.second));
    level = original.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  }
  return level.isNull() ? original : level;  // there may be no memory for another one
}

/// How often the image must be halved for its pixels to be at least as large as the screen's.
int ImageLevels::HalvesFor(double pixel, int length) {
  const int most = int(std::log2(std::max(1, length)));
  if (!(pixel > 0)) return most;
  return std::clamp(int(std::floor(-std::log2(pixel))), 0, most);
}
