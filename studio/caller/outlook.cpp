#include "studio/caller/outlook.h"

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

}  // namespace

qtui::ReadOut OutlookFor(const Picture& picture, const MosaicChoices& choices) try {
  const MosaicGeometry geometry = MosaicJob(picture, choices).Geometry();
  QString text = Text("$$$/Studio/Dialog/Tiles=%1 tiles of %2 by %3 pt",
                      QString::number(qint64(geometry.tilesAcross) * geometry.tilesDown),
                      NumberForUser(geometry.tile.width()), NumberForUser(geometry.tile.height()));
  if (IsRatioOfPercentages(choices)) {
    text = Text("$$$/Studio/Dialog/RatioOfPercentages=%1. The ratio is applied to the percentages.",
                text);
  }
  return {text, false};
} catch (const StudioError& error) {
  return {Sentence(error.what()), true};
}
