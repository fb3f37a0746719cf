#pragma once

#include <QRgb>
#include <span>

/// Receives a mosaic row by row and writes or keeps it. The rows of tiles come from top to bottom,
/// all of them, then Finish once. Both throw StudioError when the result cannot be written.
class MosaicSink {
 public:
  virtual ~MosaicSink() = default;

  /// Colours from left to right, not premultiplied.
  virtual void AddRow(std::span<const QRgb> tiles) = 0;
  virtual void Finish() = 0;
};
