#include "studio/window/mosaic_work.h"

#include <QFileInfo>
#include <utility>

#include "studio/base/output_set.h"
#include "studio/base/text.h"
#include "studio/export/mosaic_export.h"
#include "studio/mosaic/mosaic_job.h"
#include "studio/mosaic/tile_sink.h"
#include "studio/window/background_work.h"

namespace {

bool Run(MosaicJob& job, const Progress& goOn) {
  return job.Run([&](int rows) { return goOn(double(rows) / job.Geometry().tilesDown); });
}

}  // namespace

std::optional<Picture> ReadPicture(QWidget& window, const QString& path) {
  std::optional<Picture> picture;
  const QString label = Text("$$$/Studio/Progress/Opening=Opening %1…", QFileInfo(path).fileName());
  const bool isComplete = DoInBackground(window, label, [&](const Progress& goOn) {
    picture = Picture::Read(path);
    picture->PixelsInSrgb();  // the canvas would make the window wait for them
    return goOn(1);
  });
  return isComplete ? std::move(picture) : std::nullopt;
}

std::optional<Mosaic> BuildMosaic(QWidget& window, const Picture& picture,
                                  const MosaicChoices& choices) {
  MosaicJob job(picture, choices.params, choices.state);
  Mosaic mosaic{choices, job.Geometry(), {}, job.Below()};
  job.Add(std::make_unique<TileSink>(job.Geometry(), mosaic.tiles));
  const QString label = Text("$$$/Studio/Progress/Building=Building the mosaic…");
  const bool isComplete =
      DoInBackground(window, label, [&](const Progress& goOn) { return Run(job, goOn); });
  if (!isComplete) return std::nullopt;
  return mosaic;
}

bool ExportMosaic(QWidget& window, const Artwork& artwork, const QString& path) {
  CheckExportEnding(path);
  const MosaicChoices& choices = artwork.mosaic->choices;
  MosaicJob job(artwork.picture, choices.params, choices.state);
  OutputSet outputs;
  outputs.Protect(artwork.path);
  QIODevice& device = outputs.Add(path);
  const QString label =
      Text("$$$/Studio/Progress/Exporting=Exporting %1…", QFileInfo(path).fileName());
  const bool isComplete = DoInBackground(window, label, [&](const Progress& goOn) {
    job.Add(MakeExport(path, device, job.Geometry(), job.Below()));
    return Run(job, goOn);
  });
  if (isComplete) outputs.Commit();
  return isComplete;
}
