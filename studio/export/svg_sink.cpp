#include <string>

#include "studio/base/output.h"
#include "studio/base/text.h"
#include "studio/export/mosaic_export.h"
#include "studio/export/picture_encoding.h"
#include "studio/export/svg_tiles.h"

namespace {

constexpr size_t kWrittenAtOnce = 1 << 16;

class SvgSink final : public MosaicSink {
 public:
  SvgSink(QIODevice& device, const MosaicGeometry& geometry, const QImage& below);

  void AddRow(std::span<const QRgb> row) override;
  void Finish() override { WriteAll(device, text + "</g>\n</svg>\n"); }

 private:
  QIODevice& device;
  SvgTiles tiles;
  std::string text;  // that is not written yet
};

SvgSink::SvgSink(QIODevice& device, const MosaicGeometry& geometry, const QImage& below)
    : device(device), tiles(geometry, {}) {
  const std::string width = NumberText(geometry.size.width());
  const std::string height = NumberText(geometry.size.height());
  text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\"";
  text += " width=\"" + width + "pt\" height=\"" + height + "pt\" viewBox=\"0 0 " + width + " " +
          height + "\">\n";
  if (!below.isNull()) {
    const bool isClear = below.hasAlphaChannel();
    const QByteArray bytes =
        isClear ? EncodePicture(below, "png") : EncodePicture(below, "jpeg", kJpegQuality);
    text += "<image width=\"" + width + "\" height=\"" + height +
            "\" preserveAspectRatio=\"none\" href=\"data:image/" + (isClear ? "png" : "jpeg") +
            ";base64," + bytes.toBase64().toStdString() + "\"/>\n";
  }
  // Tiles that touch must not let anything shine through between them.
  text += geometry.TilesTouch() ? "<g shape-rendering=\"crispEdges\">\n" : "<g>\n";
}

void SvgSink::AddRow(std::span<const QRgb> row) {
  tiles.AppendRow(row, text);
  if (text.size() < kWrittenAtOnce) return;
  WriteAll(device, text);
  text.clear();
}

}  // namespace

std::unique_ptr<MosaicSink> MakeSvgSink(QIODevice& device, const MosaicGeometry& geometry,
                                        const QImage& below, double) {
  return std::make_unique<SvgSink>(device, geometry, below);
}
