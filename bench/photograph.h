#pragma once

#include <QByteArray>
#include <QImage>

namespace bench {

/// Pixels with the gradients and the noise of a photograph, always the same ones.
QImage MakePhotograph(int width, int height);

/// 24 megapixels, made once: as a camera would write them, and decoded.
struct Photograph {
  Photograph();

  QByteArray jpeg;
  QImage pixels;
};

const Photograph& BigPhotograph();

}  // namespace bench
