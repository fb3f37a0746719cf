#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "studio/mosaic/artwork.h"
#include "studio/mosaic/mosaic_sink.h"

/// Asked with the number of rows that are done; answers whether to go on.
using GoOn = std::function<bool(int rowsDone)>;

/// A mosaic to be built from a picture and what the dialog gave back, and all that it is to become.
/// It is built once, for all of them together.
class MosaicJob {
 public:
  /// The picture must outlive the job. Throws StudioError when no mosaic can be made of this.
  MosaicJob(const Picture& picture, const MosaicChoices& choices);

  const MosaicGeometry& Geometry() const { return geometry; }

  /// Whether the picture stays and shows between or through the tiles.
  bool ShowsPicture() const;
  /// The picture, in sRGB, where it shows; otherwise null.
  QImage Below() const;

  void Add(std::unique_ptr<MosaicSink> sink);

  /// A mosaic whose tiles are there after Run. It must outlive the job. Throws StudioError when
  /// there is no memory for the tiles.
  void Add(Mosaic& mosaic);

  /// Builds row by row and asks after each, and again after each thing that was finished. Answers
  /// whether it always was to go on. Throws StudioError when something cannot be written.
  [[nodiscard]] bool Run(const GoOn& goOn);

 private:
  const Picture& picture;
  const bool isColor;
  const bool keepsPicture;
  const MosaicGeometry geometry;
  std::vector<std::unique_ptr<MosaicSink>> sinks;
};

/// Gives a mosaic that was built before to the sink, asking like MosaicJob::Run.
[[nodiscard]] bool WriteMosaic(const Mosaic& mosaic, MosaicSink& sink, const GoOn& goOn);
