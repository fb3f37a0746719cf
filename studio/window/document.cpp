#include "studio/window/document.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <utility>

namespace {

constexpr size_t kMostSteps = 30;
constexpr qint64 kMostBytes = qint64(1) << 30;

}  // namespace

void Document::Change(const QString& name, ArtworkPtr next) {
  steps.resize(current + 1);
  steps.push_back({name, std::move(next)});
  // The last step can be taken back, however large it is.
  while (steps.size() > 2 && (steps.size() > kMostSteps + 1 || Bytes() > kMostBytes)) {
    steps.erase(steps.begin());
  }
  current = steps.size() - 1;
}

void Document::Undo() {
  if (current > 0) --current;
}

void Document::Redo() {
  if (current + 1 < steps.size()) ++current;
}

std::vector<ArtworkPtr> Document::Unexported() const {
  std::vector<ArtworkPtr> unexported;
  bool isReplaced = false;
  for (size_t i = current + 1; i-- > 0;) {
    const bool isMosaic = steps[i].artwork && steps[i].artwork->mosaic;
    if (isMosaic && !isReplaced && !steps[i].isExported) unexported.push_back(steps[i].artwork);
    isReplaced = isMosaic;  // pictures are placed as such, so a mosaic follows one of its picture
  }
  return unexported;
}

void Document::GoTo(const ArtworkPtr& artwork) {
  const auto step = std::find_if(steps.begin(), steps.end(),
                                 [&](const Step& step) { return step.artwork == artwork; });
  if (step != steps.end()) current = size_t(step - steps.begin());
}

/// Artworks share images, so each is counted by what it shares.
qint64 Document::Bytes() const {
  std::map<qint64, qint64> sizes;
  const auto count = [&](const QImage& image) { sizes[image.cacheKey()] = image.sizeInBytes(); };
  for (const Step& step : steps) {
    if (!step.artwork) continue;
    count(step.artwork->picture.Pixels());
    count(step.artwork->picture.PixelsInSrgb());
    if (!step.artwork->mosaic) continue;
    count(step.artwork->mosaic->tiles);
    count(step.artwork->mosaic->below);
  }
  return std::accumulate(sizes.begin(), sizes.end(), qint64(0),
                         [](qint64 sum, const auto& image) { return sum + image.second; });
}
