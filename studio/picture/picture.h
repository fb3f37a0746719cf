#pragma once

#include <QImage>
#include <QSizeF>
#include <functional>
#include <memory>

#include "studio/picture/picture_reader.h"

/// Returns the next row of a picture at each call, from top to bottom: sRGB, alpha not
/// premultiplied, valid until the next call. To be called at most once per row. Throws StudioError
/// when the file cannot be read; damage can show as late as the last row.
using PictureRows = std::function<const QRgb*()>;

/// A picture in sRGB, upright, with its size on the page. Its pixels are in memory, or are read
/// from its file each time. Copies share them.
class Picture {
 public:
  /// Reads only the header, and polls `isStopped` meanwhile. Throws StudioError when the file is
  /// not a supported picture, is damaged or too large, or when reading was stopped.
  static Picture Open(
      PictureFile file, const IsStopped& isStopped = [] { return false; });

  /// Open, then Hold.
  static Picture Read(
      PictureFile file, const IsStopped& isStopped = [] { return false; });

  /// Converts the image to sRGB; its resolution gives the size. Throws StudioError when there is
  /// not enough memory, or when the image is null because there was not enough before.
  explicit Picture(QImage image);

  /// In pixels.
  QSize Size() const { return size; }
  /// Whether pixels may be transparent; exact when all pixels are in memory.
  bool HasAlpha() const { return hasAlpha; }
  /// The size on the page, in points of 1/72 inch: by the resolution that the file states, else one
  /// point per pixel.
  QSizeF SizeInPoints() const { return sizeInPoints; }
  /// Both lengths are above 0.
  void SetSizeInPoints(QSizeF points) { sizeInPoints = points; }

  /// Starts a pass over the rows, which must not outlive the picture. Destroying the result ends
  /// the process that reads the file. What `isStopped` refers to must outlive the result. Copies of
  /// a picture that is not held must not call this on two threads at once. Throws StudioError when
  /// the file cannot be read or has changed.
  PictureRows Rows(const IsStopped& isStopped) const;

  /// Reads all pixels into memory. Throws StudioError.
  void Hold(const IsStopped& isStopped);
  /// Makes Pixels() a reduction of the picture, while Rows still reads the file.
  void ShowAs(QImage reduction) { pixels = std::move(reduction); }
  /// Whether all pixels are in memory.
  bool IsHeld() const { return pixels.size() == size; }

  /// For display: all pixels, a reduction of them, or null. Format_ARGB32 when some are
  /// transparent, otherwise Format_RGB32.
  const QImage& Pixels() const { return pixels; }

 private:
  Picture() = default;

  QSize size;
  bool hasAlpha = false;
  QSizeF sizeInPoints;
  std::shared_ptr<const PictureFile> file;                 // null for an image from the clipboard
  std::shared_ptr<std::unique_ptr<PictureReader>> opened;  // past the header, for the first pass
  QImage pixels;
};
