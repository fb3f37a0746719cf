#pragma once

#include <cstdint>

/// What tesserae-picture-reader and the studio, which starts it, exchange. The reader gets a
/// picture as descriptor 0: a regular file or a memory file at its start. It writes to descriptor
/// 1: a PictureHeader, then `height` rows of `width` pixels of `channels` bytes, from top to
/// bottom, without padding, in sRGB. Its exit status is a PictureOutcome; the rows are valid only
/// with kRead. With the argument `kListFormats` it writes one line per format instead: name,
/// endings and MIME types, separated by tabs; endings and MIME types are separated by spaces.
struct PictureHeader {
  uint32_t width;          // of the upright picture, in pixels
  uint32_t height;         // width * height is at most kMaxPicturePixels
  uint32_t channels;       // 3: RGB; 4: RGBA, not premultiplied
  uint32_t dotsPerMeterX;  // 0 when the file states no resolution
  uint32_t dotsPerMeterY;
};

inline constexpr uint64_t kMaxPicturePixels = uint64_t{1} << 32;
inline constexpr const char* kListFormats = "--formats";

/// The exit status of the reader. SIGXCPU means that it took too long; other signals and values are
/// failures of a decoder.
enum PictureOutcome {
  kRead = 0,
  kUnsupported = 3,
  kDamaged,
  kTruncated,
  kTooLarge,
  kUnconfined  // the sandbox could not be set up
};
