#pragma once

#include <QImage>
#include <QString>
#include <random>

/// Pixels without any pattern, the same for the same seed.
inline QImage RandomImage(int width, int height, QImage::Format format, unsigned seed) {
  std::mt19937 random(seed);
  QImage image(width, height, format);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) image.setPixel(x, y, QRgb(random()));
  }
  return image;
}

/// Of 60 by 40 points.
inline void SaveRandomPicture(const QString& path) {
  QImage picture = RandomImage(60, 40, QImage::Format_RGB32, 11);
  picture.setDotsPerMeterX(2835);
  picture.setDotsPerMeterY(2835);
  picture.save(path);
}
