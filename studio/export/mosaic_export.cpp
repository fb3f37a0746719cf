#include "studio/export/mosaic_export.h"

#include <QFileInfo>
#include <algorithm>
#include <iterator>

#include "studio/base/studio_error.h"
#include "studio/export/pdf_sink.h"
#include "studio/export/png_sink.h"
#include "studio/export/svg_sink.h"

namespace {

using MakeSink = std::unique_ptr<MosaicSink> (*)(QIODevice&, const MosaicGeometry&, const QImage&);

template <typename Sink>
std::unique_ptr<MosaicSink> Make(QIODevice& device, const MosaicGeometry& geometry,
                                 const QImage& below) {
  return std::make_unique<Sink>(device, geometry, below);
}

constexpr struct {
  const char* ending;
  MakeSink make;
} kKinds[] = {{"svg", Make<SvgSink>}, {"png", Make<PngSink>}, {"pdf", Make<PdfSink>}};

MakeSink FindKind(const QString& path) {
  const QString ending = QFileInfo(path).suffix().toLower();
  const auto kind = std::find_if(std::begin(kKinds), std::end(kKinds), [&](const auto& candidate) {
    return ending == QLatin1String(candidate.ending);
  });
  if (kind != std::end(kKinds)) return kind->make;
  throw StudioError(
      "$$$/Studio/Export/Ending=cannot export to %1: the name must end in .svg, .png or .pdf",
      path);
}

}  // namespace

void CheckExportEnding(const QString& path) {
  FindKind(path);
}

std::unique_ptr<MosaicSink> MakeExport(const QString& path, QIODevice& device,
                                       const MosaicGeometry& geometry, const QImage& below) {
  return FindKind(path)(device, geometry, below);
}
