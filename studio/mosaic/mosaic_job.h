#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "studio/mosaic/mosaic_geometry.h"
#include "studio/mosaic/mosaic_sink.h"
#include "studio/picture/picture.h"

/// A mosaic to be built from a picture and what the dialog gave back, and all that it is to become.
/// It is built once, for all of them together.
class MosaicJob {
 public:
  /// The picture must outlive the job. Throws StudioError when no mosaic can be made of this.
  MosaicJob(const Picture& picture, const MosaicParameters& params, const MosaicDialogState& state);

  const MosaicGeometry& Geometry() const { return geometry; }

  /// The picture, in sRGB, where it stays and shows between or through the tiles; otherwise null.
  QImage Below() const;

  void Add(std::unique_ptr<MosaicSink> sink);

  /// Builds row by row and asks after each, with the number of rows done, whether to go on, and
  /// again after each thing that was finished. Answers whether nobody said no. Throws StudioError
  /// when something cannot be written.
  [[nodiscard]] bool Run(const std::function<bool(int rowsDone)>& goOn);

 private:
  const Picture& picture;
  const bool isColor;
  const bool keepsPicture;
  const MosaicGeometry geometry;
  std::vector<std::unique_ptr<MosaicSink>> sinks;
};
