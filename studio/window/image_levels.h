#pragma once

#include <QImage>
#include <map>
#include <utility>

/// An image at the sizes of halves, quarters and so on, each made when it is first wanted, so that
/// drawing it small takes no longer than drawing it large.
class ImageLevels {
 public:
  explicit ImageLevels(const QImage& full) : original(full) {}

  const QImage& Full() const { return original; }

  /// The smallest whose pixels are not larger than those of the screen, on which a pixel of the
  /// full image is this large.
  const QImage& For(double pixelWidth, double pixelHeight);

 private:
  static int HalvesFor(double pixel, int length);

  const QImage original;
  std::map<std::pair<int, int>, QImage> reduced;
};
