#pragma once

#include <cstddef>
#include <cstdint>

/// What tesserae-picture-reader and the program that starts it exchange. The reader takes a picture
/// from descriptor 0, which must be a regular file or a memory file. It writes to descriptor 1: a
/// PictureHeader, `profileSize` bytes of an ICC profile, then `height` rows of `width` pixels of
/// `channels` bytes, from top to bottom, without padding. Its exit status is a PictureOutcome; the
/// picture is complete only with kRead. With the argument `kConvert` rows are always sRGB; with
/// `kListFormats` it writes a line per format instead: name, endings and MIME types, separated by
/// tabs, the last two by spaces within.
struct PictureHeader {
  uint32_t version;
  uint32_t width;          // upright, in pixels
  uint32_t height;         // width * height is at most kMostPicturePixels
  uint32_t channels;       // 3: RGB; 4: RGBA, not premultiplied
  uint32_t dotsPerMeterX;  // 0 when the file does not say
  uint32_t dotsPerMeterY;
  uint32_t profileSize;  // of the profile that gives the rows their colours; 0 for sRGB
};
static_assert(offsetof(PictureHeader, channels) == 12 && sizeof(PictureHeader) == 28);

inline constexpr uint32_t kPictureProtocol = 1;
inline constexpr uint64_t kMostPicturePixels = uint64_t{1} << 32;
inline constexpr uint32_t kMostProfileSize = 16 << 20;
inline constexpr const char* kConvert = "--convert";
inline constexpr const char* kListFormats = "--formats";

/// The exit status of the reader. Other values, and signals but SIGXCPU, are failures of its own.
enum PictureOutcome { kRead = 0, kUnsupported = 3, kDamaged, kTruncated, kTooLarge };
