#pragma once

#include "studio/mosaic/artwork.h"

/// Gives a picture pixels to show: all of its own up to 100 million, otherwise a reduction to at
/// most 4096 by 3072, each the mean of its share. Throws StudioError when the picture cannot be
/// read to its end, when `isStopped` returns true, or when memory is short.
void MakeShowable(
    Picture& picture, const IsStopped& isStopped = [] { return false; });

/// A picture at no more pixels than a screen shows, each the mean of the light of its share. Of a
/// photograph, the tiles that are at least four of its pixels wide and high are within 3 of 255 of
/// those of the picture itself; a border of tiles that runs along a hard edge can show more.
class Reduction {
 public:
  static constexpr QSize kMostPixels{2048, 1536};  // where the picture has more

  /// Throws StudioError when there is no memory.
  explicit Reduction(const Picture& picture);

  /// What building a mosaic of `original`, the picture that was reduced, would give, in a time that
  /// does not grow with the picture: where there are more tiles than a screen shows apart, `tiles`
  /// has a pixel for several. Throws StudioError as building does, when no mosaic can be made.
  Mosaic Preview(const Picture& original, const MosaicChoices& choices) const;

 private:
  Picture reduced;
};
