#pragma once

#include <QImage>
#include <string>
#include <vector>

#include "studio/mosaic/mosaic_geometry.h"
#include "studio/mosaic/mosaic_sink.h"

class QIODevice;

/// Writes the mosaic as a PDF document of one page, exactly as large as the mosaic, a filled
/// rectangle per tile. The page's content goes out in compressed pieces as it comes in, so that
/// memory doesn't grow with the tiles.
class PdfSink : public MosaicSink {
 public:
  /// `below` lies under the tiles, as large as the mosaic; null for nothing.
  PdfSink(QIODevice& device, const MosaicGeometry& geometry, const QImage& below);

  void AddRow(std::span<const QRgb> tiles) override;
  void Finish() override;

 private:
  void Write(const std::string& bytes);
  int NewObject();
  void BeginObject(int number);
  void WriteStream(int number, const std::string& dictionary, const QByteArray& content);
  void WriteContentPiece();

  QIODevice& device;
  const MosaicGeometry geometry;
  int64_t written = 0;
  std::vector<int64_t> offsets;  // of the objects, by number
  int picture = 0;               // its object, 0 for none
  std::vector<int> pieces;       // the numbers of the content streams
  std::string content;           // of the piece that is being collected
  int alpha = 255;               // in force
  int row = 0;
};
