#pragma once

#include <QByteArray>
#include <QImage>

namespace bench {

/// Pixels with the gradients and the noise of a photograph; each call returns the same.
QImage MakePhotograph(int width, int height);

/// 24 megapixels, created once: encoded as by a camera, and decoded.
struct Photograph {
  Photograph();

  QByteArray jpeg;
  QImage pixels;
};

const Photograph& BigPhotograph();

}  // namespace bench
