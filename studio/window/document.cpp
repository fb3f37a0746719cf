#include "studio/window/document.h"

#include <QFileInfo>
#include <algorithm>
#include <map>
#include <utility>

#include "studio/base/studio_error.h"

namespace {

constexpr size_t kMostSteps = 30;
constexpr qint64 kMostBytes = qint64(1) << 30;

/// Sums the bytes of images; an image that several artworks share counts once.
class ImageBytes {
 public:
  void Add(const QImage& image) {
    if (sizes.emplace(image.cacheKey(), image.sizeInBytes()).second) sum += image.sizeInBytes();
  }
  void AddPicture(const Artwork& artwork) {
    Add(artwork.picture.Pixels());
    if (artwork.mosaic) Add(artwork.mosaic->below);
  }
  qint64 Sum() const { return sum; }

 private:
  std::map<qint64, qint64> sizes;
  qint64 sum = 0;
};

/// The artwork with another picture, also below its tiles where one shows there.
ArtworkPtr WithPicture(const Artwork& artwork, const Picture& picture) {
  Artwork made = artwork;
  made.picture = picture;
  if (made.mosaic && !made.mosaic->below.isNull()) {
    Mosaic mosaic = *made.mosaic;
    mosaic.below = picture.Pixels();
    made.mosaic = std::make_shared<const Mosaic>(std::move(mosaic));
  }
  return std::make_shared<const Artwork>(std::move(made));
}

Picture Placeholder() {
  QImage pixel(1, 1, QImage::Format_RGB32);
  pixel.fill(Qt::white);
  return Picture(pixel);
}

}  // namespace

Document::Step::Step(const QString& stepName, ArtworkPtr shown)
    : name(stepName), artwork(std::move(shown)) {
  if (!artwork) return;
  const QFileInfo file(artwork->path);
  picture = artwork->picture.Pixels().cacheKey();
  modified = file.lastModified();
  fileSize = file.size();
}

bool Document::Step::CanReadAgain() const {
  const QFileInfo file(artwork->path);
  return modified.isValid() && file.lastModified() == modified && file.size() == fileSize;
}

Document::Document(ReadAgain read, ArtworkPtr first) : readAgain(std::move(read)) {
  steps.emplace_back(QString(), std::move(first));
}

void Document::Change(const QString& name, ArtworkPtr next) {
  Steps changed(steps.begin(), steps.begin() + std::ptrdiff_t(current) + 1);
  changed.emplace_back(name, std::move(next));
  ForgetOldest(changed);
  ReleasePictures(changed, changed.size() - 1);
  steps.swap(changed);
  current = steps.size() - 1;
}

bool Document::GoTo(size_t step) {
  Steps changed = steps;
  if (!Restore(changed, step)) return false;
  ReleasePictures(changed, step);
  steps.swap(changed);
  current = step;
  return true;
}

std::vector<size_t> Document::UnexportedIn(const Steps& steps, size_t current) {
  std::vector<size_t> unexported;
  qint64 replaced = 0;  // the picture of the next step's mosaic
  for (size_t i = current + 1; i-- > 0;) {
    const Step& step = steps[i];
    const bool isMosaic = step.artwork && step.artwork->mosaic;
    if (isMosaic && !step.isExported && step.picture != replaced) unexported.push_back(i);
    replaced = isMosaic ? step.picture : 0;
  }
  return unexported;
}

void Document::ForgetOldest(Steps& steps) {
  const auto bytes = [&] {
    ImageBytes sum;
    for (const Step& step : steps) {
      if (!step.artwork) continue;
      if (!step.modified.isValid()) sum.AddPicture(*step.artwork);
      if (step.artwork->mosaic) sum.Add(step.artwork->mosaic->tiles);
    }
    return sum.Sum();
  };
  while (steps.size() > kMostSteps + 1 || bytes() > kMostBytes) {
    const std::vector<size_t> kept = UnexportedIn(steps, steps.size() - 1);
    size_t oldest = 0;
    while (std::ranges::find(kept, oldest) != kept.end()) ++oldest;
    if (oldest + 2 >= steps.size()) return;
    steps.erase(steps.begin() + std::ptrdiff_t(oldest));
  }
}

void Document::ReleasePictures(Steps& steps, size_t shown) {
  const auto isHeld = [](const Step& step) {
    return step.artwork && step.modified.isValid() && !step.isReleased;
  };
  const auto bytes = [&] {
    ImageBytes sum;
    for (const Step& step : steps)
      if (isHeld(step)) sum.AddPicture(*step.artwork);
    return sum.Sum();
  };
  for (size_t i = 0; i < steps.size() && bytes() > kMostBytes; ++i) {
    const qint64 picture = steps[i].picture;
    if (!isHeld(steps[i]) || picture == steps[shown].picture || !steps[i].CanReadAgain()) continue;
    for (Step& step : steps) {
      if (step.picture != picture) continue;
      step.artwork = WithPicture(*step.artwork, Placeholder());
      step.isReleased = true;
    }
  }
}

/// Reads the step's picture if it is released, for all steps that share it.
bool Document::Restore(Steps& steps, size_t shown) const {
  if (!steps[shown].isReleased) return true;
  const QString path = steps[shown].artwork->path;
  if (!steps[shown].CanReadAgain()) {
    throw StudioError("$$$/Studio/Undo/FileChanged=%1 has changed since it was placed",
                      QFileInfo(path).fileName());
  }
  const std::optional<Picture> read = readAgain(path);
  if (!read) return false;
  const qint64 picture = steps[shown].picture;
  for (Step& step : steps) {
    if (step.picture != picture) continue;
    step.artwork = WithPicture(*step.artwork, *read);
    step.picture = read->Pixels().cacheKey();
    step.isReleased = false;
  }
  return true;
}
