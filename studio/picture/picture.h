#pragma once

#include <QColorSpace>
#include <QImage>
#include <QSizeF>
#include <memory>

#include "studio/picture/picture_reader.h"

/// A raster picture as it lies on the page: upright rows of 8-bit RGB, the meaning of their values,
/// and the size that it takes up. Its pixels are in memory, or in a file from which they are read
/// each time. Copies share them.
class Picture {
 public:
  /// Reads only the header, and polls `isStopped` meanwhile. Throws StudioError when the format is
  /// not supported, the file is damaged, or the picture is too large.
  static Picture Open(
      PictureFile file, const IsStopped& isStopped = [] { return false; });

  /// The same, and holds all pixels.
  static Picture Read(
      PictureFile file, const IsStopped& isStopped = [] { return false; });

  /// A picture of these pixels at the resolution that they carry. Throws StudioError when there is
  /// no memory for them, or was none when the image was made.
  explicit Picture(QImage image);

  /// Upright, in pixels.
  QSize Size() const { return size; }
  /// Whether some pixels can be transparent; exact when the pixels are in memory.
  bool HasAlpha() const { return hasAlpha; }
  /// The colour space of the values; invalid when the file doesn't say, which means sRGB.
  QColorSpace ColorSpace() const { return space; }
  /// The size on the page in points of 1/72 inch: what the resolution gives, or what was set.
  QSizeF SizeInPoints() const;
  /// Sets the size on the page, in points; both lengths are above 0.
  void SetSizeInPoints(QSizeF points) { setSize = points; }

  /// The rows. Those of a file come from one process for each pass, which ends with the result.
  /// `isStopped` must outlive it. Throws StudioError when the file cannot be read or has changed.
  std::unique_ptr<PictureRows> Rows(const IsStopped& isStopped) const;

  /// Reads all pixels into memory. Throws StudioError.
  void Hold(const IsStopped& isStopped);
  /// Shows these pixels in sRGB in place of its own, which stay in the file.
  void ShowAs(QImage reduction) { pixels = std::move(reduction); }
  /// Whether all pixels are in memory.
  bool IsHeld() const { return pixels.size() == size; }

  /// What is shown: the pixels, Format_RGB32 or, when some are transparent, Format_ARGB32; a
  /// reduction of them; or null.
  const QImage& Pixels() const { return pixels; }
  /// The same in sRGB. Made when first asked for, which must not be by two threads at once, and
  /// kept. Throws StudioError when there is no memory.
  const QImage& PixelsInSrgb() const;

 private:
  Picture() = default;

  QSize size;
  bool hasAlpha = false;
  QColorSpace space;
  QSize dotsPerMeter;
  QSizeF setSize;                           // empty where the resolution counts
  std::shared_ptr<const PictureFile> file;  // null for pixels that come from nowhere else
  bool converts = false;                    // the file's profile says more than ColorSpace() can
  std::shared_ptr<std::unique_ptr<PictureReader>> opened;  // answers the first call of Rows
  QImage pixels;
  mutable QImage pixelsInSrgb;  // shares `pixels` where these are in sRGB already
};
