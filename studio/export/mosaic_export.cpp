#include "studio/export/mosaic_export.h"

#include <algorithm>
#include <iterator>

#include "studio/base/studio_error.h"

namespace {

constexpr ExportKind kKinds[] = {
    {".svg", "$$$/Studio/Export/Svg=SVG drawing (*.svg)", MakeSvgSink, false},
    {".pdf", "$$$/Studio/Export/Pdf=PDF document (*.pdf)", MakePdfSink, false},
    {".png", "$$$/Studio/Export/Png=PNG picture (*.png)", MakePngSink, true},
};

}  // namespace

std::span<const ExportKind> ExportKinds() {
  return kKinds;
}

const ExportKind* FindExportKind(const QString& path) {
  const auto* kind = std::find_if(std::begin(kKinds), std::end(kKinds), [&](const auto& candidate) {
    return path.endsWith(QLatin1String(candidate.ending), Qt::CaseInsensitive);
  });
  return kind != std::end(kKinds) ? kind : nullptr;
}

const ExportKind& ExportKindOf(const QString& path) {
  if (const ExportKind* const kind = FindExportKind(path)) return *kind;
  throw StudioError(
      "$$$/Studio/Export/Ending=cannot export to %1: the name must end in .svg, .png or .pdf",
      path);
}
