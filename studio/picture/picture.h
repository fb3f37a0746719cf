#pragma once

#include <QColorSpace>
#include <QImage>
#include <QSizeF>
#include <QString>
#include <functional>

/// A raster picture as it lies on the page: its pixels upright and in 8-bit RGB, the meaning of
/// their values, and the size that it takes up.
class Picture {
 public:
  /// Reads the first image of a file. Throws StudioError when the file is absent, is no picture
  /// that can be read here, is damaged or too large, or ends before the picture does. A drawing is
  /// given up soon after `isStopped` says so.
  static Picture Read(
      const QString& path, const std::function<bool()>& isStopped = [] { return false; });

  /// A picture of these pixels at the resolution that they carry. Throws StudioError when there is
  /// no memory for them, or was none when the image was made.
  explicit Picture(QImage image);

  /// Upright pixels, Format_RGB32 or, when some are transparent, Format_ARGB32.
  const QImage& Pixels() const { return pixels; }
  /// The same in sRGB, for showing. Made when first asked for, which must not be by two threads at
  /// once, and kept. Throws StudioError when there is no memory.
  const QImage& PixelsInSrgb() const;

  bool HasAlpha() const { return pixels.format() == QImage::Format_ARGB32; }

  /// The colour space of the values; invalid when the file doesn't say, which means sRGB.
  QColorSpace ColorSpace() const { return pixels.colorSpace(); }

  /// The size on the page in points of 1/72 inch: what the resolution gives, or what was set.
  QSizeF SizeInPoints() const;
  /// Sets the size on the page, in points; both lengths are above 0.
  void SetSizeInPoints(QSizeF size) { setSize = size; }

 private:
  QImage pixels;
  QSizeF setSize;               // empty where the resolution counts
  mutable QImage pixelsInSrgb;  // shares `pixels` where these are in sRGB already
};
