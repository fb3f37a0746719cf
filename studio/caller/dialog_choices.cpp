#include "studio/caller/dialog_choices.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "studio/base/studio_error.h"

namespace {

constexpr int kFirstTilesAcross = 100;
constexpr int kMostTilesEntered = 8640;  // the upper bound of user input

constexpr const char* kTilesAcross = "HorizontalCountTxt";
constexpr const char* kTilesDown = "VerticalCountTxt";

MosaicChoices FirstChoices() {
  MosaicChoices choices;
  choices.params.tilesAcross = kFirstTilesAcross;
  choices.params.isColor = 1;
  choices.params.deleteRaster = 1;
  choices.params.keepHorizontal = 1;
  return choices;
}

float RequiredEntry(const DialogEntries& entries, const char* id) {
  if (const auto found = entries.find(id); found != entries.end()) return found->second;
  throw StudioError("$$$/Studio/Module/NoControl=the dialog has no usable control %1", QString(id));
}

/// Cuts off a number's fraction; `cuts` becomes true if it has one.
int32_t Whole(float number, bool& cuts) {
  const auto whole = int32_t(number);
  cuts |= float(whole) != number;
  return whole;
}

}  // namespace

MosaicChoices ChoicesFor(const Artwork& artwork, const std::optional<MosaicChoices>& last,
                         const std::optional<MosaicChoices>& former) {
  const QSizeF size = artwork.picture.SizeInPoints();
  MosaicChoices choices = former ? *former : last ? *last : FirstChoices();
  MosaicParameters& params = choices.params;
  if (!former) {
    const double down = params.tilesAcross * size.height() / size.width();
    params.tilesDown = int(std::lround(std::clamp(down, 1.0, double(kMostTilesEntered))));
  }
  params.sizeUnavailable = !artwork.isSizeKnown;
  params.boundsRight = artwork.isSizeKnown ? int(std::lround(size.width())) : 0;
  params.boundsBottom = artwork.isSizeKnown ? int(std::lround(size.height())) : 0;
  return choices;
}

Forecast ForecastFor(DialogEntries entries, const MosaicChoices& asked,
                     const std::optional<qtui::PendingEntry>& pending) {
  bool changesTiles = false;
  if (pending) {
    const std::string id(pending->field->UI_GetNodeID().View());
    changesTiles =
        (id == kTilesAcross || id == kTilesDown) && pending->number != pending->field->GetNumber();
    entries[id] = float(pending->number);
  }
  const auto entry = [&](const char* id) { return RequiredEntry(entries, id); };
  // Entering a number of tiles clamps both spacings.
  const auto spacing = [&](const char* id, const char* tilesId) {
    const float most = std::max(entry(tilesId) - 2, 0.0F);
    return changesTiles ? std::min(entry(id), most) : entry(id);
  };
  Forecast forecast{asked};
  MosaicParameters& params = forecast.choices.params;
  MosaicDialogState& state = forecast.choices.state;

  state.noOriginalSize = params.sizeUnavailable;
  state.usePercent = entry("UsePercentChk") != 0;
  state.reserved6 = 0;
  const float height = int16_t(params.boundsBottom - params.boundsTop);
  const bool hasRatio = !params.sizeUnavailable && height != 0;
  state.aspectRatio = hasRatio ? float(params.boundsRight - params.boundsLeft) / height : 1;

  params.isColor = entry("ColorRadio") != 0;
  params.keepHorizontal = entry("HorizontalRadio") != 0;
  params.deleteRaster = entry("DeleteRasterChk") != 0;
  const float whole = state.usePercent ? 100 : 1;
  params.newWidth = entry("NewWidthTxt") / whole;
  params.newHeight = entry("NewHeightTxt") / whole;
  bool& cutsSpaces = forecast.cutsSpaces;
  params.tileSpacingHorizontal = Whole(spacing("TileSpaceHorzTxt", kTilesAcross), cutsSpaces);
  params.tileSpacingVertical = Whole(spacing("TileSpaceVertTxt", kTilesDown), cutsSpaces);
  params.tilesAcross = params.tilesAcrossCopy = Whole(entry(kTilesAcross), forecast.cutsTiles);
  params.tilesDown = params.tilesDownCopy = Whole(entry(kTilesDown), forecast.cutsTiles);
  params.reserved28 = params.reserved32 = params.reserved60 = params.reserved64 = 0;
  return forecast;
}
