#include "studio/caller/dialog_summary.h"

#include <QStringList>
#include <cmath>

#include "studio/base/studio_error.h"
#include "studio/base/text.h"
#include "studio/mosaic/mosaic_job.h"

namespace {

/// Whether one percentage follows from the other one by the picture's ratio.
bool IsRatioOfPercentages(const MosaicChoices& choices) {
  const double width = choices.params.newWidth * 100.0;
  const double height = choices.params.newHeight * 100.0;
  const double ratio = choices.state.aspectRatio;
  const auto follows = [](double derived, double percentage) {
    return std::abs(std::round(derived) - percentage) < 1e-3;
  };
  return choices.state.usePercent && std::abs(width - height) > 0.5 &&
         (follows(width / ratio, height) || follows(height * ratio, width));
}

/// Throws StudioError when there can be no mosaic.
QString TilesText(const Picture& picture, const MosaicChoices& choices) {
  const MosaicGeometry geometry = MosaicJob(picture, choices).Geometry();
  const uint64_t count = uint64_t(geometry.tilesAcross) * geometry.tilesDown;
  return PluralText("$$$/Studio/Dialog/Tiles=%1 tile of %2 by %3 pt", "%1 tiles of %2 by %3 pt",
                    count, NumberForUser(double(count)), NumberForUser(geometry.tile.width()),
                    NumberForUser(geometry.tile.height()));
}

/// How the mosaic differs from what the fields suggest.
QStringList Remarks(const Forecast& forecast) {
  const MosaicParameters& params = forecast.choices.params;
  QStringList remarks;
  if (IsRatioOfPercentages(forecast.choices)) {
    remarks +=
        Text("$$$/Studio/Dialog/RatioOnPercentages=The ratio is applied to the percentages.");
  }
  if (forecast.cutsTiles) {
    remarks += Text("$$$/Studio/Dialog/WholeTiles=Tile numbers are rounded down: %1 by %2.",
                    NumberForUser(params.tilesAcross), NumberForUser(params.tilesDown));
  }
  if (forecast.cutsSpaces) {
    remarks += Text(
        "$$$/Studio/Dialog/WholeSpaces=Spacing is rounded down to whole points: %1 by %2 pt.",
        NumberForUser(params.tileSpacingHorizontal), NumberForUser(params.tileSpacingVertical));
  }
  return remarks;
}

}  // namespace

qtui::Summary SummaryFor(const Picture& picture, const Forecast& forecast) {
  QStringList remarks = Remarks(forecast);
  try {
    const QString tiles = TilesText(picture, forecast.choices);
    const bool isWarning = forecast.cutsTiles || forecast.cutsSpaces;
    if (remarks.isEmpty()) return {tiles, isWarning};
    return {Text("$$$/Studio/Dialog/TilesAndMore=%1. %2", tiles, remarks.join(' ')), isWarning};
  } catch (const StudioError& error) {
    remarks.prepend(Sentence(error.what()));
    return {remarks.join(' '), true};
  }
}
